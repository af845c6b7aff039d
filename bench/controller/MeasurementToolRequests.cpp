#include "ControllerRequests.h"
#include "SimMachine.h"
#include "SimText.h"

namespace
{

SimTool *toolOf(SimMachine &machine, const SimArguments &arguments)
{
    const auto index = arguments.index(0, machine.room.tools.size());
    return index ? &machine.room.tools[*index] : nullptr;
}

SimReply available(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(SimText::yesOrNo(!machine.room.tools.empty()));
}

SimReply count(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(std::to_string(machine.room.tools.size()));
}

SimReply tipCalibrated(SimMachine &machine, const SimArguments &arguments)
{
    const SimTool *tool = toolOf(machine, arguments);
    return tool == nullptr ? SimReply::noSuch("tool")
                           : SimReply::value(SimText::yesOrNo(tool->tipCalibrated));
}

SimReply duration(SimMachine &machine, const SimArguments &arguments)
{
    const SimTool *tool = toolOf(machine, arguments);
    return tool == nullptr ? SimReply::noSuch("tool")
                           : SimReply::value(SimText::compact(tool->durationSeconds));
}

SimReply tolerance(SimMachine &machine, const SimArguments &arguments)
{
    const SimTool *tool = toolOf(machine, arguments);
    return tool == nullptr ? SimReply::noSuch("tool") : SimReply::value(SimText::compact(tool->toleranceMm));
}

SimReply start(SimMachine &machine, const SimArguments &arguments)
{
    SimTool *tool = toolOf(machine, arguments);
    if (tool == nullptr)
        return SimReply::noSuch("tool");
    if (machine.state.activity != SimActivity::Measuring)
        return SimReply::notMeasuring();
    if (!tool->tracked)
        return SimReply::error(41, "tool not tracked");
    if (!tool->tipCalibrated)
        return SimReply::error(43, "tip not calibrated");
    if (machine.state.strict && tool->measurement.isBusy())
        return SimReply::error(42, "measurement is running");
    tool->measurement.start();
    return SimReply::ok();
}

} // namespace

std::vector<SimRequestRow> measurementToolRequests()
{
    return {{"get measurementtool available", available},
            {"get measurementtool number_of_tools", count},
            {"get measurementtool tip_calibrated b#", tipCalibrated},
            {"get measurementtool measurement_duration b#", duration},
            {"get measurementtool measurement_tip_tolerance b#", tolerance},
            {"measurementtool start_measurement b#", start}};
}
