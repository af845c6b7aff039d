#include "ControllerRequests.h"
#include "SimMachine.h"
#include "SimText.h"

namespace
{

const SimCalibrationKind *kindOf(const SimMachine &machine, const SimArguments &arguments)
{
    const auto found = machine.calibration.kinds.find(std::string(arguments.words.at(0)));
    return found == machine.calibration.kinds.end() ? nullptr : &found->second;
}

SimReply description(SimMachine &machine, const SimArguments &arguments)
{
    const SimCalibrationKind *kind = kindOf(machine, arguments);
    return kind == nullptr ? SimReply::noSuch("calibration") : SimReply::value('"' + kind->description + '"');
}

SimReply stepCount(SimMachine &machine, const SimArguments &arguments)
{
    const SimCalibrationKind *kind = kindOf(machine, arguments);
    return kind == nullptr ? SimReply::noSuch("calibration")
                           : SimReply::value(std::to_string(kind->steps.size()));
}

SimReply stepPause(SimMachine &machine, const SimArguments &arguments)
{
    const SimCalibrationKind *kind = kindOf(machine, arguments);
    if (kind == nullptr)
        return SimReply::noSuch("calibration");
    const auto index = arguments.index(0, kind->steps.size());
    if (!index)
        return SimReply::noSuch("step");
    const SimStep &step = kind->steps[*index];
    return SimReply::value(step.pauseAnnounced ? "yes " + std::to_string(step.announcedPauseSeconds) : "no");
}

SimReply stepDuration(SimMachine &machine, const SimArguments &arguments)
{
    const SimCalibrationKind *kind = kindOf(machine, arguments);
    if (kind == nullptr)
        return SimReply::noSuch("calibration");
    if (!arguments.index(0, kind->steps.size()))
        return SimReply::noSuch("step");
    const double seconds =
        machine.calibration.stepDuration(std::string(arguments.words.at(0)), arguments.numbers.at(0),
                                         machine.state.roomCalibration.durationSeconds);
    return SimReply::value(SimText::fixed(seconds, 3));
}

// What stands in the way of a calibration; Ok when nothing does.
SimReply permission(const SimMachine &machine)
{
    const SimState &state = machine.state;
    if (!state.available)
        return SimReply::notAvailable();
    if (state.activity == SimActivity::Calibrating)
        return SimReply::calibrating();
    if (state.activity == SimActivity::Measuring)
        return SimReply::trackingRunning();
    return state.changeable ? SimReply::ok() : SimReply::locked();
}

SimReply start(SimMachine &machine, const SimArguments &arguments)
{
    if (kindOf(machine, arguments) == nullptr)
        return SimReply::noSuch("calibration");
    SimReply allowed = permission(machine);
    if (allowed.kind != SimReply::Kind::Ok)
        return allowed;
    SimState &state = machine.state;
    state.activity = SimActivity::Calibrating;
    state.errorCode = 0;
    state.errorText.clear();
    state.newCalibration.reset();
    state.startedCoordinateType = state.roomCalibration.coordinateType;
    machine.calibration.start(std::string(arguments.words.at(0)), state.roomCalibration.durationSeconds);
    return SimReply::ok();
}

SimReply stop(SimMachine &machine, const SimArguments &arguments)
{
    if (kindOf(machine, arguments) == nullptr)
        return SimReply::noSuch("calibration");
    if (machine.state.activity != SimActivity::Calibrating)
        return SimReply::ok();
    if (machine.calibration.kind() != arguments.words.at(0))
        return SimReply::otherCalibrationRunning();
    machine.calibration.stop();
    machine.state.activity = SimActivity::None;
    return SimReply::ok();
}

} // namespace

std::vector<SimRequestRow> calibrationRequests()
{
    return {{"get cal type_desc *", description},
            {"get cal number_of_steps *", stepCount},
            {"get cal step_pause * s#", stepPause},
            {"get cal step_duration * s#", stepDuration},
            {"cal * start", start},
            {"cal * stop", stop}};
}
