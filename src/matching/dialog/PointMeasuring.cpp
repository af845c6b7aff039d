#include "PointMeasuring.h"

#include "MatchingState.h"
#include "MeasurementRecords.h"
#include "ObjectWatch.h"

#include <algorithm>
#include <cstring>

namespace
{

constexpr int decoded = 0;
constexpr int undecodable = -2;

/// The kind whose records are followed by others of the same moment.
bool endsTheHandling(const char *kind)
{
    return kind && std::strncmp(kind, toolLineBeginning, sizeof toolLineBeginning - 1) == 0;
}

} // namespace

PointMeasuring::PointMeasuring(IOManager *commands, const BackendVersions *versions, MatchingState &state,
                               QObject *parent)
    : QObject(parent)
    , m_controller(commands, versions)
    , m_state(state)
{
}

ToolSurvey PointMeasuring::open()
{
    const ObjectWatch self(this);
    m_sampler.restart();
    return surveyTools(m_controller, [&self] { return bool(self); });
}

bool PointMeasuring::isTracked() const
{
    return m_sampler.selectedTool() != ToolSampler::noTool && m_sampler.isTracked();
}

void PointMeasuring::awaitRecords()
{
    m_records.seen(RecordWatch::Clock::now());
}

bool PointMeasuring::recordsArrive() const
{
    return !m_records.isSilent(RecordWatch::Clock::now());
}

int PointMeasuring::dataReceived(const char *kind, const char *text)
{
    awaitRecords();
    if (!m_sampler.decode(text))
        return undecodable;
    if (endsTheHandling(kind) || !m_state.isOpen())
        return decoded;
    m_sampler.watchButtons();
    if (!m_state.takesRecords())
        return decoded;
    const ObjectWatch self(this);
    const int count = std::min(m_state.toolCount(), m_sampler.toolCount());
    for (int index = 0; index < count && self; ++index)
        takeStep(m_sampler.sample(index));
    return decoded;
}

void PointMeasuring::takeStep(const ToolSampler::Step &step)
{
    switch (step.event) {
    case ToolSampler::Event::StartRequested:
        emit startRequested();
        break;
    case ToolSampler::Event::Sampled:
        emit sampled(step.elapsed);
        break;
    case ToolSampler::Event::Ended:
        emit ended(step.judgement);
        break;
    case ToolSampler::Event::FirstSample:
    case ToolSampler::Event::Ignored:
        break;
    }
}

void PointMeasuring::start()
{
    const int tool = m_sampler.selectedTool();
    if (tool == ToolSampler::noTool || !m_state.canStart())
        return;
    const ObjectWatch self(this);
    m_state.beginStart();
    emit starting();
    const double duration = m_controller.duration(tool);
    if (!self)
        return;
    emit durationKnown(duration);
    const double tolerance = m_controller.tipTolerance(tool);
    if (!self)
        return;
    m_sampler.setLimits(duration, tolerance);
    m_controller.startMeasurement(tool);
    if (self)
        m_state.started();
}
