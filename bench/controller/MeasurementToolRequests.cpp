#include "ControllerRequests.h"
#include "NamedElement.h"
#include "SimText.h"

namespace
{

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
    return withTool(machine, arguments, [](const SimTool &tool) {
        return SimReply::value(SimText::yesOrNo(tool.tipCalibrated));
    });
}

SimReply duration(SimMachine &machine, const SimArguments &arguments)
{
    return withTool(machine, arguments, [](const SimTool &tool) {
        return SimReply::value(SimText::compact(tool.durationSeconds));
    });
}

SimReply tolerance(SimMachine &machine, const SimArguments &arguments)
{
    return withTool(machine, arguments,
                    [](const SimTool &tool) { return SimReply::value(SimText::compact(tool.toleranceMm)); });
}

SimReply start(SimMachine &machine, const SimArguments &arguments)
{
    return withTool(machine, arguments, [&machine](SimTool &tool) {
        if (machine.state.activity != SimActivity::Measuring)
            return SimReply::notMeasuring();
        if (!tool.tracked)
            return SimReply::toolNotTracked();
        if (!tool.tipCalibrated)
            return SimReply::tipNotCalibrated();
        if (machine.state.strict && tool.measurement.isBusy())
            return SimReply::measurementRunning();
        tool.measurement.start();
        return SimReply::ok();
    });
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
