#include "FrameRecords.h"

#include "SimCoordinates.h"
#include "SimMachine.h"
#include "SimText.h"

#include <algorithm>
#include <cstddef>

namespace
{

constexpr int joystickDecimals = 2;

/// What a record says of one tool, tip and noise of this frame included.
struct ToolReading {
    const SimTool *tool;
    bool tracked;
    SimPose pose;
};

std::string vectorBlock(const SimVector &v)
{
    return "[" + SimText::joined(std::array<double, 3>{v.x, v.y, v.z}, 3) + "]";
}

std::string rotationBlock(const SimRotation &rotation)
{
    return "[" + SimText::joined(rotation.rows, 6) + "]";
}

// The blocks of place and orientation; zeros when it is not tracked.
std::string poseBlocks(const SimPose &pose, bool tracked)
{
    if (tracked)
        return vectorBlock(pose.position) + rotationBlock(pose.rotation);
    return vectorBlock({}) + rotationBlock({{}});
}

std::string identity(std::size_t index, bool tracked)
{
    return " [" + std::to_string(index) + (tracked ? " 1.000" : " -1.000");
}

template <typename Buttons>
unsigned buttonBits(const Buttons &buttons)
{
    unsigned bits = 0;
    for (std::size_t i = 0; i < buttons.size(); ++i)
        bits |= (buttons[i].isDown() ? 1U : 0U) << i;
    return bits;
}

ToolReading readTool(SimTool &tool, const SimCoordinates &coordinates, double scaling, SimRandom &random)
{
    const SimVector tip = tool.tip + random.normal(tool.tremorMm);
    const SimPose pose = coordinates.reported(SimPose{tip, tool.orientation});
    const SimVector noise = random.normal(scaling * tool.noiseMm);
    const bool tracked = tool.tracked && coordinates.isTracking();
    return {&tool, tracked, {pose.position + noise, pose.rotation}};
}

std::vector<ToolReading> readTools(SimMachine &machine, const SimCoordinates &coordinates)
{
    std::vector<ToolReading> readings;
    for (SimTool &tool : machine.room.tools) {
        readings.push_back(readTool(tool, coordinates, machine.state.extra.scaling, machine.random));
        tool.measurement.frame(readings.back().pose.position, readings.back().tracked,
                               {tool.durationSeconds, tool.toleranceMm, tool.toleranceCheck},
                               framesPerSecond);
    }
    return readings;
}

std::string timestamp(const SimState &state)
{
    return SimText::fixed(state.timestampOffset + state.frameNumber / framesPerSecond, 6);
}

std::string bodies(const std::vector<SimBody> &list, const SimCoordinates &coordinates)
{
    std::string records;
    int count = 0;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (!list[i].tracked || !coordinates.isTracking())
            continue;
        ++count;
        records += identity(i, true) + "]" + poseBlocks(coordinates.reported(list[i].pose), true);
    }
    return "6d " + std::to_string(count) + records;
}

std::string toolsFirst(const std::vector<ToolReading> &readings)
{
    std::string line = "6dmt " + std::to_string(readings.size());
    for (std::size_t i = 0; i < readings.size(); ++i) {
        const ToolReading &reading = readings[i];
        const unsigned bits =
            (reading.tool->measurement.isRunning() ? 1U : 0U) | buttonBits(reading.tool->buttons) << 1;
        line += identity(i, reading.tracked) + " " + std::to_string(reading.tracked ? bits : 0U) + "]" +
                poseBlocks(reading.pose, reading.tracked);
    }
    return line;
}

std::string flags(const ToolReading &reading)
{
    const SimTool &tool = *reading.tool;
    std::string text = reading.tracked && tool.measurement.isRunning() ? "1" : "0";
    for (const SimButton &button : tool.buttons)
        text += reading.tracked && button.isDown() ? " 1" : " 0";
    return text;
}

std::string covariance(const ToolReading &reading, double scaling)
{
    const double sigma = scaling * reading.tool->noiseMm;
    const double variance = reading.tracked ? std::min(sigma * sigma, SimText::largestNumber) : 0.0;
    return SimText::joined(std::array<double, 6>{variance, 0.0, 0.0, variance, 0.0, variance}, 4);
}

std::string toolsSecond(const std::vector<ToolReading> &readings, double scaling)
{
    std::string line = "6dmt2 " + std::to_string(readings.size());
    for (std::size_t i = 0; i < readings.size(); ++i) {
        const ToolReading &reading = readings[i];
        line += identity(i, reading.tracked) + " " + std::to_string(reading.tool->buttons.size() + 1) + " " +
                SimText::fixed(reading.tool->tipRadiusMm, 3) + "]" +
                poseBlocks(reading.pose, reading.tracked) + "[" + flags(reading) + "][" +
                covariance(reading, scaling) + "]";
    }
    return line;
}

std::string devicesFirst(const std::vector<SimDevice> &devices, const SimCoordinates &coordinates)
{
    std::string line = "6df " + std::to_string(devices.size());
    for (std::size_t i = 0; i < devices.size(); ++i) {
        const SimDevice &device = devices[i];
        const bool tracked = device.tracked && coordinates.isTracking();
        line += identity(i, tracked) + " " + std::to_string(tracked ? buttonBits(device.buttons) : 0U) + "]" +
                poseBlocks(coordinates.reported(device.pose), tracked);
    }
    return line;
}

std::string controls(const SimDevice &device, bool tracked)
{
    std::string text;
    for (const SimButton &button : device.buttons)
        text += tracked && button.isDown() ? "1 " : "0 ";
    for (const double value : device.joystick)
        text += SimText::fixed(tracked ? value : 0.0, joystickDecimals) + " ";
    if (!text.empty())
        text.pop_back();
    return text;
}

std::string devicesSecond(const std::vector<SimDevice> &devices, const SimCoordinates &coordinates)
{
    std::string line = "6df2 " + std::to_string(devices.size());
    for (std::size_t i = 0; i < devices.size(); ++i) {
        const SimDevice &device = devices[i];
        const bool tracked = device.tracked && coordinates.isTracking();
        line += identity(i, tracked) + " " + std::to_string(device.buttons.size()) + " " +
                std::to_string(device.joystick.size()) + "]" +
                poseBlocks(coordinates.reported(device.pose), tracked) + "[" + controls(device, tracked) +
                "]";
    }
    return line;
}

std::string calibratedBodies(const SimMachine &machine)
{
    std::size_t count = machine.room.bodies.size();
    if (machine.recordFaults.formats != RecordFaults::Formats::Second)
        count += machine.room.devices.size() + machine.room.tools.size();
    return "6dcal " + std::to_string(count);
}

} // namespace

std::vector<SimRecord> nextFrame(SimMachine &machine)
{
    const SimCoordinates coordinates(machine);
    SimState &state = machine.state;
    ++state.frameNumber;
    const std::vector<ToolReading> tools = readTools(machine, coordinates);
    std::vector<SimRecord> records = {{"fr", "fr " + std::to_string(state.frameNumber)},
                                      {"ts", "ts " + timestamp(state)},
                                      {"6dcal", calibratedBodies(machine)},
                                      {"6d", bodies(machine.room.bodies, coordinates)},
                                      {"6dmt2", toolsSecond(tools, state.extra.scaling)},
                                      {"6dmt", toolsFirst(tools)},
                                      {"6df2", devicesSecond(machine.room.devices, coordinates)},
                                      {"6df", devicesFirst(machine.room.devices, coordinates)}};
    const auto isMissing = [&machine](const SimRecord &record) {
        return !machine.recordFaults.exists(record.kind);
    };
    records.erase(std::remove_if(records.begin(), records.end(), isMissing), records.end());
    machine.room.endClicks();
    return records;
}
