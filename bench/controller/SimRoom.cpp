#include "SimRoom.h"

#include <cstddef>

namespace
{

SimCamera camera(const char *serial, double x, double y, double turnDegrees)
{
    constexpr double mountingHeight = 2500.0;
    constexpr double tiltDegrees = 120.0;
    SimCamera one;
    one.serial = serial;
    one.pose = {{x, y, mountingHeight},
                SimRotation::fromDegrees(0, 0, turnDegrees) * SimRotation::fromDegrees(tiltDegrees, 0, 0)};
    return one;
}

SimWorkpiece standardWorkpiece()
{
    SimWorkpiece workpiece;
    workpiece.pose = {{400.0, -250.0, 700.0}, SimRotation::fromDegrees(4.0, -7.0, 25.0)};
    workpiece.points = {{"front left", {0.0, 0.0, 0.0}},
                        {"front right", {620.0, 0.0, 0.0}},
                        {"rear left", {0.0, 410.0, 0.0}},
                        {"rear right", {620.0, 380.0, 60.0}},
                        {"top of the post", {150.0, 120.0, 340.0}},
                        {"bore", {480.0, 90.0, 130.0}}};
    return workpiece;
}

void approach(SimTool &tool, double seconds)
{
    const SimVector way = tool.target - tool.tip;
    const double rest = length(way);
    const double step = tool.speedMm * seconds;
    if (step < rest) {
        tool.tip = tool.tip + (step / rest) * way;
        return;
    }
    tool.tip = tool.target;
    tool.speedMm = 0.0;
}

template <typename Buttons>
void endClicksOf(Buttons &buttons)
{
    for (SimButton &button : buttons)
        button.clicked = false;
}

} // namespace

SimVector SimAngleTool::foot() const
{
    return marker1.position - heightMm * marker1.rotation.column(2);
}

SimRoom SimRoom::standard()
{
    SimRoom room;
    room.cameras = {camera("00028", 2000.0, 0.0, 90.0), camera("00031", 0.0, 2000.0, 180.0),
                    camera("00034", -2000.0, 0.0, -90.0), camera("00045", 0.0, -2000.0, 0.0)};
    room.tools.resize(1);
    room.tools[0].tip = {100.0, 200.0, 300.0};
    room.devices.resize(1);
    room.devices[0].pose.position = {500.0, 0.0, 1000.0};
    room.bodies.resize(1);
    room.bodies[0].pose.position = {50.0, 60.0, 70.0};
    room.angleTool.marker1 = {{-300.0, 150.0, 55.0}, SimRotation::fromDegrees(0.0, 0.0, 30.0)};
    room.workpiece = standardWorkpiece();
    return room;
}

void SimRoom::move(double seconds)
{
    for (SimTool &tool : tools) {
        if (tool.speedMm > 0.0)
            approach(tool, seconds);
    }
}

void SimRoom::endClicks()
{
    for (SimTool &tool : tools)
        endClicksOf(tool.buttons);
    for (SimDevice &device : devices)
        endClicksOf(device.buttons);
}
