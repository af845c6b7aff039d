#include "SimGuards.h"

#include "SimArguments.h"
#include "SimMachine.h"

#include <algorithm>

namespace
{

std::optional<SimReply> unless(bool condition, SimReply refusal)
{
    return condition ? std::nullopt : std::optional<SimReply>(std::move(refusal));
}

std::optional<SimReply> refusalOf(SimGuard guard, const SimMachine &machine, const SimArguments &arguments)
{
    const SimState &state = machine.state;
    const auto &kinds = machine.calibration.kinds;
    switch (guard) {
    case SimGuard::KnownCalibration:
        return unless(kinds.count(std::string(arguments.words.at(0))) > 0, SimReply::noSuch("calibration"));
    case SimGuard::Available:
        return unless(state.available, SimReply::notAvailable());
    case SimGuard::NotCalibrating:
        return unless(state.activity != SimActivity::Calibrating, SimReply::calibrating());
    case SimGuard::NotMeasuring:
        return unless(state.activity != SimActivity::Measuring, SimReply::trackingRunning());
    case SimGuard::NewCalibration:
        return unless(state.newCalibration.has_value(), SimReply::noNewCalibration());
    case SimGuard::Unlocked:
        return unless(state.changeable, SimReply::locked());
    case SimGuard::NotedMeasuring:
        return unless(!state.strict || state.activity != SimActivity::Measuring,
                      SimReply::stopTrackingFirst());
    }
    return std::nullopt;
}

} // namespace

namespace SimGuarding
{

std::optional<SimReply> refusal(const SimGuards &guards, const SimMachine &machine,
                                const SimArguments &arguments)
{
    for (const SimGuard guard : guards) {
        if (std::optional<SimReply> reply = refusalOf(guard, machine, arguments))
            return reply;
    }
    return std::nullopt;
}

bool isNoted(const SimGuards &guards, const SimMachine &machine)
{
    return machine.state.activity == SimActivity::Measuring &&
           std::find(guards.begin(), guards.end(), SimGuard::NotedMeasuring) != guards.end();
}

} // namespace SimGuarding
