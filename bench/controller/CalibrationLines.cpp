#include "ControlLines.h"
#include "NamedElement.h"
#include "SimLimits.h"
#include "SimText.h"

#include <cstddef>

namespace
{

using ControlLines::expected;

constexpr int mostSteps = 20;

/// Finds the calibration kind that the first word of a line names and lets `change` work on it; a running
/// calibration takes new trouble over.
template <typename Change>
SimReply withKind(SimMachine &machine, const SimArguments &arguments, Change change)
{
    const std::string name(arguments.words.at(0));
    const auto found = machine.calibration.kinds.find(name);
    if (found == machine.calibration.kinds.end())
        return SimReply::noSuch("calibration");
    SimReply reply = change(found->second);
    if (reply.kind == SimReply::Kind::Ok)
        machine.calibration.adoptTrouble(name);
    return reply;
}

SimReply steps(SimMachine &machine, const SimArguments &arguments)
{
    const auto count = ControlLines::count(arguments, 1, mostSteps);
    if (!count)
        return expected("a number of steps from 1 to 20");
    return withKind(machine, arguments, [&](SimCalibrationKind &kind) {
        kind.steps.resize(static_cast<std::size_t>(*count));
        return SimReply::ok();
    });
}

SimReply pause(SimMachine &machine, const SimArguments &arguments)
{
    const auto values = arguments.reals(2);
    if (!values || values->at(0) < 0.0 || values->at(1) < 0.0 ||
        values->at(0) > SimLimits::longestDurationSeconds ||
        values->at(1) > SimLimits::longestDurationSeconds)
        return expected("announced and real seconds");
    return withKind(machine, arguments, [&](SimCalibrationKind &kind) {
        return withElement(kind.steps, "step", arguments, [&](SimStep &step) {
            step.pauseAnnounced = true;
            step.announcedPauseSeconds = static_cast<int>(values->at(0));
            step.pauseSeconds = values->at(1);
            return SimReply::ok();
        });
    });
}

SimReply noPause(SimMachine &machine, const SimArguments &arguments)
{
    return withKind(machine, arguments, [&](SimCalibrationKind &kind) {
        return withElement(kind.steps, "step", arguments, [](SimStep &step) {
            step = SimStep{false, 0, 0.0, step.durationSeconds};
            return SimReply::ok();
        });
    });
}

SimReply duration(SimMachine &machine, const SimArguments &arguments)
{
    const auto seconds = ControlLines::number(arguments, 0.1, SimLimits::longestDurationSeconds);
    if (!seconds)
        return expected("seconds from 0.1 up");
    return withKind(machine, arguments, [&](SimCalibrationKind &kind) {
        for (SimStep &step : kind.steps)
            step.durationSeconds = *seconds;
        return SimReply::ok();
    });
}

SimReply stall(SimMachine &machine, const SimArguments &arguments)
{
    const auto values = arguments.reals(2);
    if (!values || values->at(0) < 0.0 || values->at(0) > 1.0 || values->at(1) < 0.0 ||
        values->at(1) > SimLimits::longestDurationSeconds)
        return expected("a fraction and seconds");
    return withKind(machine, arguments, [&](SimCalibrationKind &kind) {
        kind.stallFraction = values->at(0);
        kind.stallSeconds = values->at(1);
        return SimReply::ok();
    });
}

SimReply error(SimMachine &machine, const SimArguments &arguments)
{
    const auto fraction = SimText::real(arguments.words.at(1));
    const std::string_view text = arguments.words.at(2);
    if (!fraction || *fraction < 0.0 || *fraction > 1.0 || text.size() > 100)
        return expected("a fraction and a text");
    return withKind(machine, arguments, [&](SimCalibrationKind &kind) {
        kind.errorFraction = *fraction;
        kind.errorText = std::string(text);
        return SimReply::ok();
    });
}

SimReply noError(SimMachine &machine, const SimArguments &arguments)
{
    return withKind(machine, arguments, [](SimCalibrationKind &kind) {
        kind.errorFraction.reset();
        return SimReply::ok();
    });
}

SimReply afterWork(SimMachine &machine, const SimArguments &arguments)
{
    const auto seconds = ControlLines::number(arguments, 0.0, SimLimits::longestDurationSeconds);
    if (!seconds)
        return expected("seconds");
    return withKind(machine, arguments, [&](SimCalibrationKind &kind) {
        kind.afterWorkSeconds = *seconds;
        return SimReply::ok();
    });
}

SimReply curve(SimMachine &machine, const SimArguments &arguments)
{
    const auto values = arguments.reals(arguments.values.size());
    if (!values || values->size() % 2 != 0)
        return expected("pairs of seconds and fraction");
    std::vector<std::pair<double, double>> points;
    for (std::size_t i = 0; i < values->size(); i += 2) {
        if (!(values->at(i) > (points.empty() ? 0.0 : points.back().first)))
            return expected("seconds that ascend from above 0");
        points.emplace_back(values->at(i), values->at(i + 1));
    }
    return withKind(machine, arguments, [&](SimCalibrationKind &kind) {
        kind.curve = points;
        return SimReply::ok();
    });
}

SimReply cameraRate(SimMachine &machine, const SimArguments &arguments)
{
    constexpr double largestRate = 1000.0;
    const auto rate = ControlLines::number(arguments, 0.0, largestRate);
    return withCamera(machine, arguments, [&](SimCamera &camera) {
        if (!rate)
            return expected("a rate from 0 to 1000");
        camera.progressRate = *rate;
        return SimReply::ok();
    });
}

} // namespace

std::vector<SimRequestRow> calibrationLines()
{
    return {{"cal * steps ...", steps},   {"cal * pause # none", noPause},
            {"cal * pause # ...", pause}, {"cal * duration ...", duration},
            {"cal * stall ...", stall},   {"cal * error none", noError},
            {"cal * error * *", error},   {"cal * afterwork ...", afterWork},
            {"cal * curve ...", curve},   {"cal * camera # rate ...", cameraRate}};
}
