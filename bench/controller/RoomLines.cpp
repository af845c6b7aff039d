#include "ControlLines.h"
#include "NamedElement.h"

namespace
{

using ControlLines::expected;

constexpr const char *poseWords = "x y z rx ry rz";

SimReply setPose(SimPose &pose, const SimArguments &arguments)
{
    const auto wanted = ControlLines::pose(arguments);
    if (!wanted)
        return expected(poseWords);
    pose = *wanted;
    return SimReply::ok();
}

SimReply setTruth(bool &value, const SimArguments &arguments)
{
    const auto wanted = ControlLines::truth(arguments);
    if (!wanted)
        return expected("yes or no");
    value = *wanted;
    return SimReply::ok();
}

SimReply devicePose(SimMachine &machine, const SimArguments &arguments)
{
    return withElement(machine.room.devices, "device", arguments,
                       [&](SimDevice &device) { return setPose(device.pose, arguments); });
}

SimReply deviceTracked(SimMachine &machine, const SimArguments &arguments)
{
    return withElement(machine.room.devices, "device", arguments,
                       [&](SimDevice &device) { return setTruth(device.tracked, arguments); });
}

SimReply deviceButton(SimMachine &machine, const SimArguments &arguments)
{
    return withElement(machine.room.devices, "device", arguments, [&](SimDevice &device) {
        const auto index = arguments.index(1, device.buttons.size());
        return index ? ControlLines::operate(device.buttons[*index], arguments.words.at(0))
                     : SimReply::noSuch("button");
    });
}

SimReply deviceJoystick(SimMachine &machine, const SimArguments &arguments)
{
    return withElement(machine.room.devices, "device", arguments, [&](SimDevice &device) {
        const auto index = arguments.index(1, device.joystick.size());
        const auto value = ControlLines::number(arguments, -1.0, 1.0);
        if (!index)
            return SimReply::noSuch("joystick axis");
        if (!value)
            return expected("a number from -1 to 1");
        device.joystick[*index] = *value;
        return SimReply::ok();
    });
}

SimReply bodyPose(SimMachine &machine, const SimArguments &arguments)
{
    return withElement(machine.room.bodies, "body", arguments,
                       [&](SimBody &body) { return setPose(body.pose, arguments); });
}

SimReply bodyTracked(SimMachine &machine, const SimArguments &arguments)
{
    return withElement(machine.room.bodies, "body", arguments,
                       [&](SimBody &body) { return setTruth(body.tracked, arguments); });
}

SimReply cameraPose(SimMachine &machine, const SimArguments &arguments)
{
    return withCamera(machine, arguments, [&](SimCamera &camera) { return setPose(camera.pose, arguments); });
}

SimReply cameraRoom(SimMachine &machine, const SimArguments &arguments)
{
    const std::string_view wanted = arguments.words.at(0);
    if (wanted != "none" && wanted != "yes")
        return expected("none or yes");
    return withCamera(machine, arguments, [&](SimCamera &camera) {
        camera.hasRoom = wanted == "yes";
        return SimReply::ok();
    });
}

SimReply objectPose(SimMachine &machine, const SimArguments &arguments)
{
    return setPose(machine.room.workpiece.pose, arguments);
}

SimReply objectPoint(SimMachine &machine, const SimArguments &arguments)
{
    const auto values = arguments.reals(3);
    if (!values)
        return expected("x y z");
    std::vector<SimPoint> &points = machine.room.workpiece.points;
    const SimVector nominal{values->at(0), values->at(1), values->at(2)};
    const auto index = arguments.index(0, points.size());
    if (index)
        points[*index].nominal = nominal;
    else if (arguments.numbers.at(0) == static_cast<int>(points.size()) + 1 &&
             points.size() < SimRoom::mostPoints)
        points.push_back({"point " + std::to_string(arguments.numbers.at(0)), nominal});
    else
        return SimReply::noSuch("point");
    return SimReply::ok();
}

SimReply angleToolPose(SimMachine &machine, const SimArguments &arguments)
{
    return setPose(machine.room.angleTool.marker1, arguments);
}

SimReply angleToolSize(SimMachine &machine, const SimArguments &arguments)
{
    const auto values = arguments.reals(4);
    if (!values)
        return expected("A B C height");
    machine.room.angleTool.distancesMm = {values->at(0), values->at(1), values->at(2)};
    machine.room.angleTool.heightMm = values->at(3);
    return SimReply::ok();
}

SimReply angleToolVisible(SimMachine &machine, const SimArguments &arguments)
{
    return setTruth(machine.room.angleTool.visible, arguments);
}

} // namespace

std::vector<SimRequestRow> roomLines()
{
    return {{"device # pose ...", devicePose},
            {"device # tracked ...", deviceTracked},
            {"device # button # *", deviceButton},
            {"device # joystick # ...", deviceJoystick},
            {"body # pose ...", bodyPose},
            {"body # tracked ...", bodyTracked},
            {"camera # pose ...", cameraPose},
            {"camera # room *", cameraRoom},
            {"object pose ...", objectPose},
            {"object point # ...", objectPoint},
            {"angletool pose ...", angleToolPose},
            {"angletool size ...", angleToolSize},
            {"angletool visible ...", angleToolVisible}};
}
