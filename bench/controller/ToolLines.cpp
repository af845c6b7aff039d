#include "ControlLines.h"
#include "NamedElement.h"
#include "SimLimits.h"
#include "SimText.h"

namespace
{

using ControlLines::expected;

void place(SimTool &tool, const SimVector &tip)
{
    tool.tip = tip;
    tool.speedMm = 0.0;
}

SimReply tip(SimMachine &machine, const SimArguments &arguments)
{
    return withTool(machine, arguments, [&](SimTool &tool) {
        const auto values = arguments.reals(3);
        if (!values)
            return expected("x y z");
        place(tool, {values->at(0), values->at(1), values->at(2)});
        return SimReply::ok();
    });
}

SimReply touch(SimMachine &machine, const SimArguments &arguments)
{
    return withTool(machine, arguments, [&](SimTool &tool) {
        const auto point = arguments.index(1, machine.room.workpiece.points.size());
        if (!point)
            return SimReply::noSuch("point");
        place(tool, machine.room.workpiece.pose * machine.room.workpiece.points[*point].nominal);
        return SimReply::ok();
    });
}

SimReply move(SimMachine &machine, const SimArguments &arguments)
{
    return withTool(machine, arguments, [&](SimTool &tool) {
        const auto values = arguments.reals(4);
        if (!values || !(values->at(3) > 0.0))
            return expected("x y z speed");
        tool.target = {values->at(0), values->at(1), values->at(2)};
        tool.speedMm = values->at(3);
        return SimReply::ok();
    });
}

SimReply orientation(SimMachine &machine, const SimArguments &arguments)
{
    return withTool(machine, arguments, [&](SimTool &tool) {
        const auto values = arguments.reals(3);
        if (!values)
            return expected("rx ry rz");
        tool.orientation = SimRotation::fromDegrees(values->at(0), values->at(1), values->at(2));
        return SimReply::ok();
    });
}

template <double SimTool::*member>
SimReply setNumber(SimMachine &machine, const SimArguments &arguments, double largest)
{
    return withTool(machine, arguments, [&](SimTool &tool) {
        const auto value = ControlLines::number(arguments, 0.0, largest);
        if (!value)
            return expected("a number from 0 up");
        tool.*member = *value;
        return SimReply::ok();
    });
}

template <bool SimTool::*member>
SimReply setTruth(SimMachine &machine, const SimArguments &arguments)
{
    return withTool(machine, arguments, [&](SimTool &tool) {
        const auto value = ControlLines::truth(arguments);
        if (!value)
            return expected("yes or no");
        tool.*member = *value;
        return SimReply::ok();
    });
}

SimReply tremor(SimMachine &machine, const SimArguments &arguments)
{
    return setNumber<&SimTool::tremorMm>(machine, arguments, SimLimits::largestSigmaMm);
}

SimReply noise(SimMachine &machine, const SimArguments &arguments)
{
    return setNumber<&SimTool::noiseMm>(machine, arguments, SimLimits::largestSigmaMm);
}

SimReply duration(SimMachine &machine, const SimArguments &arguments)
{
    return setNumber<&SimTool::durationSeconds>(machine, arguments, SimLimits::longestDurationSeconds);
}

SimReply tolerance(SimMachine &machine, const SimArguments &arguments)
{
    return setNumber<&SimTool::toleranceMm>(machine, arguments, SimText::largestNumber);
}

SimReply button(SimMachine &machine, const SimArguments &arguments)
{
    return withTool(machine, arguments, [&](SimTool &tool) {
        const auto index = arguments.index(1, tool.buttons.size());
        return index ? ControlLines::operate(tool.buttons[*index], arguments.words.at(0))
                     : SimReply::noSuch("button");
    });
}

SimReply measure(SimMachine &machine, const SimArguments &arguments)
{
    return withTool(machine, arguments, [&](SimTool &tool) {
        if (machine.state.activity != SimActivity::Measuring)
            return SimReply::notMeasuring();
        tool.measurement.start();
        return SimReply::ok();
    });
}

} // namespace

std::vector<SimRequestRow> toolLines()
{
    return {{"tool # tip ...", tip},
            {"tool # touch #", touch},
            {"tool # move ...", move},
            {"tool # orientation ...", orientation},
            {"tool # tremor ...", tremor},
            {"tool # noise ...", noise},
            {"tool # duration ...", duration},
            {"tool # tolerance ...", tolerance},
            {"tool # tracked ...", setTruth<&SimTool::tracked>},
            {"tool # calibrated ...", setTruth<&SimTool::tipCalibrated>},
            {"tool # check ...", setTruth<&SimTool::toleranceCheck>},
            {"tool # button # *", button},
            {"tool # measure", measure}};
}
