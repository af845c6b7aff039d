#pragma once

#include "SimGeometry.h"

#include <string>

struct SimMachine;
struct SimRoom;

/// What a failed calibration leaves in the controller's error state.
struct CalibrationError {
    int code = 0;
    std::string text;
};

/// The base calibration (raw coordinates = base * world) that the angle tool gives for a coordinate type.
///
/// The origin is the foot of marker 1. With u, v, n the tool's directions: normal and powerwall_standing have
/// x = u, y = v, z = n; powerwall has x = u, y = n, z = -v. mid_camera and first_camera take the coordinates
/// of that camera.
SimPose baseFromAngleTool(const SimRoom &room, const std::string &coordinateType);

/// The end of the after-work: the room calibration checks the angle tool and offers its result; other kinds
/// just end.
void finishCalibration(SimMachine &machine);

void failCalibration(SimMachine &machine, const CalibrationError &error);
