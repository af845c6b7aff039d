#include "ToolSampler.h"

#include <cstring>

namespace
{

constexpr double trackedQuality = 1.0;

bool controllerRests(const MeasurementToolRecord &tool)
{
    return tool.flags.front() == 0;
}

bool controllerMeasures(const MeasurementToolRecord &tool)
{
    return tool.flags.front() == 1;
}

} // namespace

void ToolSampler::restart()
{
    m_parser = VelmarParser();
    selectTool(m_tool);
}

void ToolSampler::selectTool(int number)
{
    m_measurement.clear();
    m_buttons.forget();
    m_tracked = false;
    m_tool = number;
}

void ToolSampler::setLimits(double duration, double tolerance)
{
    m_duration = duration;
    m_tolerance = tolerance;
}

bool ToolSampler::decode(const char *text)
{
    const std::size_t length = text ? ::strnlen(text, bufferSize) : bufferSize;
    if (length >= bufferSize)
        return false;
    std::memcpy(m_buffer.data(), text, length + 1);
    char *cursor = m_buffer.data();
    return m_parser.parseLine(&cursor) == 1;
}

ToolSampler::Step ToolSampler::sample(int index)
{
    const MeasurementToolRecord *tool = m_parser.measurementTool(index);
    if (!tool || tool->id + 1 != m_tool)
        return {};
    m_tracked = tool->quality >= trackedQuality;
    Step step;
    if (m_tracked && controllerMeasures(*tool))
        return collect(*tool);
    const bool starts = m_tracked && controllerRests(*tool) && m_buttons.isPressed();
    step.event = starts ? Event::StartRequested : Event::Ended;
    if (step.event == Event::Ended)
        step.judgement = m_measurement.finish(m_duration, m_tolerance);
    return step;
}

ToolSampler::Step ToolSampler::collect(const MeasurementToolRecord &tool)
{
    m_measurement.add(m_parser.timestamp(), tool.location);
    Step step;
    step.event = m_measurement.count() > 1 ? Event::Sampled : Event::FirstSample;
    step.elapsed = m_measurement.elapsed();
    return step;
}
