#include "ControlLines.h"
#include "SimMachine.h"
#include "SimText.h"

#include <cmath>
#include <cstdint>

namespace
{

using ControlLines::expected;

template <bool SimState::*member>
SimReply setTruth(SimMachine &machine, const SimArguments &arguments)
{
    const auto value = ControlLines::truth(arguments);
    if (!value)
        return expected("yes or no");
    machine.state.*member = *value;
    return SimReply::ok();
}

SimReply locked(SimMachine &machine, const SimArguments &arguments)
{
    const auto value = ControlLines::truth(arguments);
    if (!value)
        return expected("yes or no");
    machine.state.changeable = !*value;
    return SimReply::ok();
}

SimReply version(SimMachine &machine, const SimArguments &arguments)
{
    if (arguments.values.size() != 3)
        return expected("major minor third");
    const auto major = SimText::integer(arguments.values[0]);
    const auto minor = SimText::integer(arguments.values[1]);
    const auto third = SimText::integer(arguments.values[2]);
    if (!major || !minor || !third)
        return expected("major minor third");
    machine.state.versionMajor = *major;
    machine.state.versionMinor = *minor;
    machine.state.versionThird = *third;
    return SimReply::ok();
}

SimReply clockReal(SimMachine &machine, const SimArguments &)
{
    machine.state.clock = SimClock::Real;
    return SimReply::ok();
}

SimReply clockStepped(SimMachine &machine, const SimArguments &)
{
    machine.state.clock = SimClock::Stepped;
    return SimReply::ok();
}

SimReply clockQuery(SimMachine &machine, const SimArguments &arguments)
{
    constexpr double longestStepSeconds = 3600.0;
    const auto seconds = arguments.values.empty() ? std::optional<double>(SimState().queryStepSeconds)
                                                  : ControlLines::number(arguments, 0.0, longestStepSeconds);
    if (!seconds)
        return expected("seconds");
    machine.state.clock = SimClock::Query;
    machine.state.queryStepSeconds = *seconds;
    return SimReply::ok();
}

SimReply seed(SimMachine &machine, const SimArguments &arguments)
{
    const auto value = ControlLines::count(arguments, 0, 2147483647);
    if (!value)
        return expected("a whole number from 0 up");
    machine.random.seed(static_cast<std::uint64_t>(*value));
    return SimReply::ok();
}

SimReply jump(SimMachine &machine, const SimArguments &arguments)
{
    const auto seconds = arguments.reals(1);
    if (!seconds)
        return expected("seconds");
    const double offset = machine.state.timestampOffset + seconds->at(0);
    if (!(std::abs(offset) <= SimText::largestNumber))
        return expected("seconds that keep the time stamps in bounds");
    machine.state.timestampOffset = offset;
    return SimReply::ok();
}

SimReply restart(SimMachine &machine, const SimArguments &)
{
    machine.restart();
    return SimReply::ok();
}

} // namespace

std::vector<SimRequestRow> machineLines()
{
    return {{"available ...", setTruth<&SimState::available>},
            {"locked ...", locked},
            {"strict ...", setTruth<&SimState::strict>},
            {"angletool supported ...", setTruth<&SimState::angleToolSupported>},
            {"version ...", version},
            {"clock real", clockReal},
            {"clock stepped", clockStepped},
            {"clock query ...", clockQuery},
            {"seed ...", seed},
            {"ts jump ...", jump},
            {"fault restart", restart}};
}
