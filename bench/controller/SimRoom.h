#pragma once

#include "SimGeometry.h"
#include "TipMeasurement.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// A button: held until it is released, or clicked, which presses it for one frame.
struct SimButton {
    bool held = false;
    bool clicked = false;

    bool isDown() const { return held || clicked; }
};

/// A camera of the tracking system. Its pose maps camera coordinates to world coordinates.
struct SimCamera {
    std::string model = "sim";
    std::string serial = "00028";
    SimPose pose;
    bool hasRoom = true;
    double progressRate = 1.0; ///< its progress in a calibration, relative to the step's
};

/// A measurement tool; what it reports is its tip.
struct SimTool {
    SimVector tip;
    SimVector target;     ///< where the tip is moving to
    double speedMm = 0.0; ///< per second; 0 when the tip stands still
    SimRotation orientation;
    double tremorMm = 0.0; ///< sigma per axis of the hand: part of the physical truth
    double noiseMm = 0.1;  ///< sigma per axis of the tracking
    bool tracked = true;
    bool tipCalibrated = true;
    std::array<SimButton, 3> buttons;
    double durationSeconds = 1.0;
    double toleranceMm = 1.5;
    bool toleranceCheck =
        true; ///< whether the controller itself ends a measurement when the tip moves too much
    double tipRadiusMm = 2.5;
    TipMeasurement measurement;
};

/// A hand-held device with buttons and joystick.
struct SimDevice {
    SimPose pose;
    bool tracked = true;
    std::vector<SimButton> buttons = std::vector<SimButton>(4);
    std::vector<double> joystick = std::vector<double>(2, 0.0); ///< each from -1 to 1
};

struct SimBody {
    SimPose pose;
    bool tracked = true;
};

/// The angle tool: an L of markers. Column 0 of its rotation points from marker 1 to marker 2, column 1 from
/// marker 1 to marker 3, column 2 is their cross product, along which the markers stand above the floor.
struct SimAngleTool {
    SimPose marker1;
    std::array<double, 3> distancesMm = {278.0, 83.0, 163.0};
    double heightMm = 55.0;
    bool visible = true;

    /// The point of the floor below marker 1.
    SimVector foot() const;
};

/// A named point of the workpiece, in the workpiece's own coordinates.
struct SimPoint {
    std::string name;
    SimVector nominal;
};

struct SimWorkpiece {
    SimPose pose; ///< maps the workpiece's coordinates to world coordinates
    std::vector<SimPoint> points;
};

/// The physical truth, in world coordinates and millimetres; it knows nothing of any calibration.
struct SimRoom {
    static constexpr std::size_t mostPoints = 200;

    std::vector<SimCamera> cameras;
    std::vector<SimTool> tools;
    std::vector<SimDevice> devices;
    std::vector<SimBody> bodies;
    SimAngleTool angleTool;
    SimWorkpiece workpiece;

    /// Four cameras at the middles of the sides, one tool, one device, one body, the angle tool, a workpiece
    /// of six points.
    static SimRoom standard();

    /// Moves what is moving on by that time.
    void move(double seconds);

    /// Ends the clicks; to be called when a frame has shown them.
    void endClicks();
};
