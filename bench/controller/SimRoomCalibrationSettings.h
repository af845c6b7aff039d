#pragma once

#include <array>
#include <string>

/// What a client has set for the next room calibration.
struct SimRoomCalibrationSettings {
    std::string type = "angle_wand";
    std::array<double, 3> anglesMm = {278.0, 83.0, 163.0};
    double angleHeightMm = 55.0;
    double durationSeconds = 30.0;
    std::string coordinateType = "normal";
};
