#include "ControllerRequests.h"
#include "NamedElement.h"
#include "SimText.h"

#include <algorithm>

namespace
{

constexpr int progressDecimals = 6;

std::string activityWord(SimActivity activity)
{
    switch (activity) {
    case SimActivity::Measuring:
        return "mea";
    case SimActivity::Calibrating:
        return "cal";
    case SimActivity::Error:
        return "err";
    case SimActivity::None:
        break;
    }
    return "none";
}

// Every question of a poll moves a clock that runs per query.
void movePolledClock(SimMachine &machine)
{
    if (machine.state.clock == SimClock::Query)
        machine.advance(machine.state.queryStepSeconds);
}

SimReply active(SimMachine &machine, const SimArguments &)
{
    movePolledClock(machine);
    return SimReply::value(activityWord(machine.state.activity));
}

SimReply stepActive(SimMachine &machine, const SimArguments &)
{
    movePolledClock(machine);
    if (machine.state.activity == SimActivity::Error)
        return SimReply::value("err");
    if (machine.state.activity != SimActivity::Calibrating)
        return SimReply::value("none");
    const bool pausing = machine.calibration.phase() == SimCalibration::Phase::Pause;
    return SimReply::value((pausing ? "pause " : "cal ") + std::to_string(machine.calibration.stepNumber()));
}

SimReply progress(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(SimText::fixed(machine.calibration.progress(), progressDecimals));
}

SimReply stepProgress(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(std::to_string(machine.calibration.stepNumber()) + " " +
                           SimText::fixed(machine.calibration.stepProgress(), progressDecimals));
}

SimReply error(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(std::to_string(machine.state.errorCode) + " \"" + machine.state.errorText + "\"");
}

SimReply cameraProgress(SimMachine &machine, const SimArguments &arguments)
{
    return withCamera(machine, arguments, [&machine](const SimCamera &camera) {
        const double part = machine.calibration.stepProgress() * camera.progressRate;
        return SimReply::value(SimText::fixed(std::min(1.0, part), 3));
    });
}

SimReply changeable(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(SimText::yesOrNo(machine.state.changeable));
}

SimReply cameraCount(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(std::to_string(machine.room.cameras.size()));
}

SimReply camera(SimMachine &machine, const SimArguments &arguments)
{
    return withCamera(machine, arguments, [&machine](const SimCamera &one) {
        const std::string state = machine.state.activity == SimActivity::None ? "idle" : "active";
        return SimReply::value(one.model + " " + one.serial + " " + state);
    });
}

} // namespace

std::vector<SimRequestRow> statusRequests()
{
    return {{"get status active", active},
            {"get status step_active", stepActive},
            {"get status progress", progress},
            {"get status step_progress", stepProgress},
            {"get status err", error},
            {"get status camera_progress c#", cameraProgress},
            {"get config is_changeable", changeable},
            {"get camera number_of_cameras", cameraCount},
            {"get camera camera c#", camera}};
}
