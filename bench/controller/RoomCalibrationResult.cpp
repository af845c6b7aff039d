#include "RoomCalibrationResult.h"

#include "SimReply.h"
#include "SimRoom.h"
#include "SimRoomCalibrationSettings.h"

#include <cmath>
#include <cstddef>

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

std::optional<SimReply> calibrationFault(const SimRoom &room, const SimRoomCalibrationSettings &settings)
{
    if (!room.angleTool.visible)
        return SimReply::angleToolNotFound();
    if (settings.type != "angle_no_wand")
        return SimReply::wrongCalibrationType();
    if (!angleToolMatches(settings, room.angleTool))
        return SimReply::angleToolMismatch();
    return std::nullopt;
}
