#pragma once

#include "AngleToolSettings.h"

class ControllerChannel;

/// The calls of which CalibrationAccess composes the room calibration with the angle tool; each reports its
/// own failure, but for restartTracking(). See there for units and for what a failure gives.
namespace AngleToolCalls
{

std::vector<OfferedCoordinateType> coordinateTypes(const ControllerChannel &channel);
QByteArray coordinateType(const ControllerChannel &channel);
std::optional<std::array<double, 3>> distances(const ControllerChannel &channel);
std::optional<double> height(const ControllerChannel &channel);
double roomDuration(const ControllerChannel &channel);

void setDistances(const ControllerChannel &channel, const std::array<double, 3> &distances);
void setHeight(const ControllerChannel &channel, double height);
void setCoordinateType(const ControllerChannel &channel, const QByteArray &identifier);
void shortenRoomDuration(const ControllerChannel &channel);
void restoreRoomDuration(const ControllerChannel &channel, double seconds);
void restartTracking(const ControllerChannel &channel);

} // namespace AngleToolCalls
