#include "ControlLines.h"
#include "NamedElement.h"
#include "SimCoordinates.h"
#include "SimLimits.h"
#include "SimText.h"

namespace
{

std::string numbers(const SimVector &v)
{
    return SimText::joined(std::array<double, 3>{v.x, v.y, v.z}, SimLimits::millimetreDecimals);
}

SimReply version(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(std::to_string(machine.state.versionMajor) + " " +
                           std::to_string(machine.state.versionMinor) + " " +
                           std::to_string(machine.state.versionThird));
}

SimReply time(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(SimText::fixed(machine.state.seconds, SimLimits::millimetreDecimals));
}

SimReply locked(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(SimText::yesOrNo(!machine.state.changeable));
}

SimReply available(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(SimText::yesOrNo(machine.state.available));
}

SimReply counts(SimMachine &machine, const SimArguments &)
{
    const SimRoom &room = machine.room;
    return SimReply::value(std::to_string(room.cameras.size()) + " " + std::to_string(room.tools.size()) +
                           " " + std::to_string(room.devices.size()) + " " +
                           std::to_string(room.bodies.size()) + " " +
                           std::to_string(room.workpiece.points.size()));
}

SimReply point(SimMachine &machine, const SimArguments &arguments)
{
    return withPoint(machine, arguments, [](const SimPoint &one) {
        return SimReply::value(numbers(one.nominal) + " \"" + one.name + "\"");
    });
}

SimReply reportedPoint(SimMachine &machine, const SimArguments &arguments)
{
    return withPoint(machine, arguments, [&machine](const SimPoint &one) {
        return SimReply::value(
            numbers(SimCoordinates(machine).reported(machine.room.workpiece.pose * one.nominal)));
    });
}

SimReply tool(SimMachine &machine, const SimArguments &arguments)
{
    return withTool(machine, arguments, [&machine](const SimTool &one) {
        const SimCoordinates coordinates(machine);
        return SimReply::value(numbers(coordinates.reported(one.tip)) + " " +
                               SimText::yesOrNo(one.tracked && coordinates.isTracking()) + " " +
                               SimText::yesOrNo(one.measurement.isBusy()) + " " +
                               SimText::compact(one.tremorMm) + " " + SimText::compact(one.noiseMm));
    });
}

SimReply angleTool(SimMachine &machine, const SimArguments &)
{
    const SimAngleTool &one = machine.room.angleTool;
    return SimReply::value(SimText::joined(one.distancesMm, SimLimits::millimetreDecimals) + " " +
                           SimText::fixed(one.heightMm, SimLimits::millimetreDecimals) + " " +
                           SimText::yesOrNo(one.visible));
}

SimReply clock(SimMachine &machine, const SimArguments &)
{
    switch (machine.state.clock) {
    case SimClock::Stepped:
        return SimReply::value("stepped");
    case SimClock::Query:
        return SimReply::value("query " + SimText::compact(machine.state.queryStepSeconds));
    case SimClock::Real:
        break;
    }
    return SimReply::value("real");
}

} // namespace

std::vector<SimRequestRow> questions()
{
    return {{"get version", version},     {"get time", time},
            {"get clock", clock},         {"get locked", locked},
            {"get available", available}, {"get counts", counts},
            {"get point #", point},       {"get reported_point #", reportedPoint},
            {"get tool #", tool},         {"get angletool", angleTool}};
}
