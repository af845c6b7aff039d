#include "RoomCalibrationResult.h"

#include "SimMachine.h"

#include <cmath>
#include <cstddef>
#include <optional>

namespace
{

constexpr double angleToolToleranceMm = 0.5;

bool matches(double set, double real)
{
    return std::fabs(set - real) <= angleToolToleranceMm;
}

bool angleToolMatches(const SimRoomCalibrationSettings &settings, const SimAngleTool &tool)
{
    bool all = matches(settings.angleHeightMm, tool.heightMm);
    for (std::size_t i = 0; i < settings.anglesMm.size(); ++i)
        all = all && matches(settings.anglesMm[i], tool.distancesMm[i]);
    return all;
}

std::optional<CalibrationError> fault(const SimMachine &machine)
{
    if (!machine.room.angleTool.visible)
        return CalibrationError{17, "Angle tool not found."};
    if (machine.state.roomCalibration.type != "angle_no_wand")
        return CalibrationError{18, "Wrong calibration type."};
    if (!angleToolMatches(machine.state.roomCalibration, machine.room.angleTool))
        return CalibrationError{19, "Angle tool does not match."};
    return std::nullopt;
}

} // namespace

SimPose baseFromAngleTool(const SimRoom &room, const std::string &coordinateType)
{
    if (!room.cameras.empty() && coordinateType == "first_camera")
        return room.cameras.front().pose.inverse();
    if (!room.cameras.empty() && coordinateType == "mid_camera")
        return room.cameras[room.cameras.size() / 2].pose.inverse();
    const SimRotation &tool = room.angleTool.marker1.rotation;
    const SimVector u = tool.column(0), v = tool.column(1), n = tool.column(2);
    const SimRotation turn = coordinateType == "powerwall" ? SimRotation::fromRows(u, n, -1.0 * v)
                                                           : SimRotation::fromRows(u, v, n);
    return {-1.0 * (turn * room.angleTool.foot()), turn};
}

void finishCalibration(SimMachine &machine)
{
    machine.calibration.conclude();
    machine.state.activity = SimActivity::None;
    if (machine.calibration.kind() != "room")
        return;
    if (const std::optional<CalibrationError> error = fault(machine))
        failCalibration(machine, *error);
    else
        machine.state.newCalibration =
            SimNewCalibration{baseFromAngleTool(machine.room, machine.state.startedCoordinateType),
                              machine.state.startedCoordinateType};
}

void failCalibration(SimMachine &machine, const CalibrationError &error)
{
    machine.calibration.conclude();
    machine.state.activity = SimActivity::Error;
    machine.state.errorCode = error.code;
    machine.state.errorText = error.text;
}
