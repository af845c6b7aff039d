#include "ControllerRequests.h"
#include "NamedElement.h"
#include "SimCoordinates.h"
#include "SimLimits.h"
#include "SimText.h"

#include <algorithm>

namespace
{

constexpr double rotationTolerance = 1e-3;

std::string millimetres(const SimVector &v)
{
    return SimText::joined(std::array<double, 3>{v.x, v.y, v.z}, SimLimits::millimetreDecimals);
}

SimReply available(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(SimText::yesOrNo(machine.state.available));
}

SimReply start(SimMachine &machine, const SimArguments &)
{
    machine.state.activity = SimActivity::Measuring;
    machine.state.errorCode = 0;
    machine.state.errorText.clear();
    return SimReply::ok();
}

SimReply stop(SimMachine &machine, const SimArguments &)
{
    if (machine.state.activity == SimActivity::Measuring) {
        machine.state.activity = SimActivity::None;
        machine.dropMeasurements();
    }
    return SimReply::ok();
}

SimReply room(SimMachine &machine, const SimArguments &arguments)
{
    return withCamera(machine, arguments, [&machine](const SimCamera &camera) {
        if (!camera.hasRoom)
            return SimReply::value("none");
        const SimPose pose = SimCoordinates(machine).current(camera.pose);
        return SimReply::value(millimetres(pose.position) + " " + SimText::joined(pose.rotation.rows, 6));
    });
}

SimReply hasRoom(SimMachine &machine, const SimArguments &arguments)
{
    return withCamera(machine, arguments, [](const SimCamera &camera) {
        return SimReply::value(SimText::yesOrNo(camera.hasRoom));
    });
}

SimReply extraRotation(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(SimText::joined(machine.state.extra.rotation.rows, 8));
}

SimReply extraTranslation(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(millimetres(machine.state.extra.translation));
}

SimReply extraScaling(SimMachine &machine, const SimArguments &)
{
    return SimReply::value(SimText::fixed(machine.state.extra.scaling, 5));
}

SimReply reference(SimMachine &machine, const SimArguments &)
{
    if (!machine.state.reference)
        return SimReply::value("none");
    const std::string number = std::to_string(*machine.state.reference + 1);
    return SimReply::value("body b" + std::string(number.size() < 2 ? "0" : "") + number);
}

SimReply setExtraRotation(SimMachine &machine, const SimArguments &arguments)
{
    const auto numbers = arguments.reals(9);
    if (!numbers)
        return SimReply::badValue();
    SimRotation rotation;
    std::copy(numbers->begin(), numbers->end(), rotation.rows.begin());
    if (!rotation.isOrthonormal(rotationTolerance))
        return SimReply::badValue();
    machine.state.extra.rotation = rotation;
    return SimReply::ok();
}

SimReply setExtraTranslation(SimMachine &machine, const SimArguments &arguments)
{
    const auto numbers = arguments.reals(3);
    if (!numbers)
        return SimReply::badValue();
    machine.state.extra.translation = {numbers->at(0), numbers->at(1), numbers->at(2)};
    return SimReply::ok();
}

SimReply setExtraScaling(SimMachine &machine, const SimArguments &arguments)
{
    constexpr double largestScaling = 1000.0;
    const auto numbers = arguments.reals(1);
    if (!numbers || !(numbers->at(0) > 0.0) || numbers->at(0) > largestScaling)
        return SimReply::badValue();
    machine.state.extra.scaling = numbers->at(0);
    return SimReply::ok();
}

SimReply clearReference(SimMachine &machine, const SimArguments &)
{
    machine.state.reference.reset();
    return SimReply::ok();
}

SimReply setReference(SimMachine &machine, const SimArguments &arguments)
{
    const auto body = arguments.index(0, machine.room.bodies.size());
    if (!body)
        return SimReply::noSuch("target");
    machine.state.reference = static_cast<int>(*body);
    return SimReply::ok();
}

SimReply unknownReference(SimMachine &, const SimArguments &arguments)
{
    return arguments.values.empty() ? SimReply::badValue() : SimReply::noSuch("target");
}

} // namespace

std::vector<SimRequestRow> trackingRequests()
{
    const SimGuards still = {SimGuard::Unlocked, SimGuard::NotedMeasuring};
    return {{"tracking start", start, {SimGuard::Available, SimGuard::NotCalibrating}},
            {"tracking stop", stop, {SimGuard::NotCalibrating}},
            {"get tracking available", available},
            {"get tracking room c#", room},
            {"get tracking has_room c#", hasRoom},
            {"get tracking extra_rotation", extraRotation},
            {"get tracking extra_translation", extraTranslation},
            {"get tracking extra_scaling", extraScaling},
            {"get tracking reference", reference},
            {"set tracking extra_rotation ...", setExtraRotation, still},
            {"set tracking extra_translation ...", setExtraTranslation, still},
            {"set tracking extra_scaling ...", setExtraScaling, still},
            {"set tracking reference none", clearReference, still},
            {"set tracking reference body b#", setReference, still},
            {"set tracking reference ...", unknownReference}};
}
