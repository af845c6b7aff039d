#pragma once

#include "SimGeometry.h"

#include <optional>
#include <string>

struct SimReply;
struct SimRoom;
struct SimRoomCalibrationSettings;

/// The base calibration (raw coordinates = base * world) that the angle tool gives for a coordinate type.
///
/// The origin is the foot of marker 1. With u, v, n the tool's directions: normal and powerwall_standing have
/// x = u, y = v, z = n; powerwall has x = u, y = n, z = -v. mid_camera and first_camera take the coordinates
/// of that camera.
SimPose baseFromAngleTool(const SimRoom &room, const std::string &coordinateType);

/// Why a room calibration with these settings fails in that room; nothing when it succeeds.
std::optional<SimReply> calibrationFault(const SimRoom &room, const SimRoomCalibrationSettings &settings);
