#include "ControllerRequests.h"
#include "NamedElement.h"
#include "SimText.h"

namespace
{

// Every row here is guarded by KnownCalibration.
const SimCalibrationKind &kindOf(const SimMachine &machine, const SimArguments &arguments)
{
    return machine.calibration.kinds.at(std::string(arguments.words.at(0)));
}

SimReply description(SimMachine &machine, const SimArguments &arguments)
{
    return SimReply::value('"' + kindOf(machine, arguments).description + '"');
}

SimReply stepCount(SimMachine &machine, const SimArguments &arguments)
{
    return SimReply::value(std::to_string(kindOf(machine, arguments).steps.size()));
}

SimReply stepPause(SimMachine &machine, const SimArguments &arguments)
{
    return withElement(kindOf(machine, arguments).steps, "step", arguments, [](const SimStep &step) {
        return SimReply::value(step.pauseAnnounced ? "yes " + std::to_string(step.announcedPauseSeconds)
                                                   : "no");
    });
}

SimReply stepDuration(SimMachine &machine, const SimArguments &arguments)
{
    return withElement(kindOf(machine, arguments).steps, "step", arguments, [&](const SimStep &) {
        const double seconds =
            machine.calibration.stepDuration(std::string(arguments.words.at(0)), arguments.numbers.at(0),
                                             machine.state.roomCalibration.durationSeconds);
        return SimReply::value(SimText::fixed(seconds, 3));
    });
}

SimReply start(SimMachine &machine, const SimArguments &arguments)
{
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
    const SimGuards known = {SimGuard::KnownCalibration};
    return {{"get cal type_desc *", description, known},
            {"get cal number_of_steps *", stepCount, known},
            {"get cal step_pause * s#", stepPause, known},
            {"get cal step_duration * s#", stepDuration, known},
            {"cal * start",
             start,
             {SimGuard::KnownCalibration, SimGuard::Available, SimGuard::NotCalibrating,
              SimGuard::NotMeasuring, SimGuard::Unlocked}},
            {"cal * stop", stop, known}};
}
