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
    SimState &state = machine.state;
    if (!state.available)
        return SimReply::notAvailable();
    if (state.activity == SimActivity::Calibrating)
        return SimReply::calibrating();
    state.activity = SimActivity::Measuring;
    state.errorCode = 0;
    state.errorText.clear();
    return SimReply::ok();
}

SimReply stop(SimMachine &machine, const SimArguments &)
{
    if (machine.state.activity == SimActivity::Calibrating)
        return SimReply::calibrating();
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

// What stands in the way of a change of the reported coordinates; Ok when nothing does.
SimReply permission(SimMachine &machine, const std::string &what)
{
    if (!machine.state.changeable)
        return SimReply::locked();
    if (machine.state.activity != SimActivity::Measuring)
        return SimReply::ok();
    if (machine.state.strict)
        return SimReply::stopTrackingFirst();
    constexpr std::size_t mostNotes = 100;
    if (machine.notes.size() < mostNotes)
        machine.notes.push_back("tracking " + what + " was set while measuring");
    return SimReply::ok();
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
    SimReply allowed = permission(machine, "extra_rotation");
    if (allowed.kind == SimReply::Kind::Ok)
        machine.state.extra.rotation = rotation;
    return allowed;
}

SimReply setExtraTranslation(SimMachine &machine, const SimArguments &arguments)
{
    const auto numbers = arguments.reals(3);
    if (!numbers)
        return SimReply::badValue();
    SimReply allowed = permission(machine, "extra_translation");
    if (allowed.kind == SimReply::Kind::Ok)
        machine.state.extra.translation = {numbers->at(0), numbers->at(1), numbers->at(2)};
    return allowed;
}

SimReply setExtraScaling(SimMachine &machine, const SimArguments &arguments)
{
    constexpr double largestScaling = 1000.0;
    const auto numbers = arguments.reals(1);
    if (!numbers || !(numbers->at(0) > 0.0) || numbers->at(0) > largestScaling)
        return SimReply::badValue();
    SimReply allowed = permission(machine, "extra_scaling");
    if (allowed.kind == SimReply::Kind::Ok)
        machine.state.extra.scaling = numbers->at(0);
    return allowed;
}

SimReply clearReference(SimMachine &machine, const SimArguments &)
{
    SimReply allowed = permission(machine, "reference");
    if (allowed.kind == SimReply::Kind::Ok)
        machine.state.reference.reset();
    return allowed;
}

SimReply setReference(SimMachine &machine, const SimArguments &arguments)
{
    const auto body = arguments.index(0, machine.room.bodies.size());
    if (!body)
        return SimReply::noSuch("target");
    SimReply allowed = permission(machine, "reference");
    if (allowed.kind == SimReply::Kind::Ok)
        machine.state.reference = static_cast<int>(*body);
    return allowed;
}

SimReply unknownReference(SimMachine &, const SimArguments &arguments)
{
    return arguments.values.empty() ? SimReply::badValue() : SimReply::noSuch("target");
}

} // namespace

std::vector<SimRequestRow> trackingRequests()
{
    return {{"tracking start", start},
            {"tracking stop", stop},
            {"get tracking available", available},
            {"get tracking room c#", room},
            {"get tracking has_room c#", hasRoom},
            {"get tracking extra_rotation", extraRotation},
            {"get tracking extra_translation", extraTranslation},
            {"get tracking extra_scaling", extraScaling},
            {"get tracking reference", reference},
            {"set tracking extra_rotation ...", setExtraRotation},
            {"set tracking extra_translation ...", setExtraTranslation},
            {"set tracking extra_scaling ...", setExtraScaling},
            {"set tracking reference none", clearReference},
            {"set tracking reference body b#", setReference},
            {"set tracking reference ...", unknownReference}};
}
