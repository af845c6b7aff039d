#pragma once

#include "RecordFaults.h"
#include "SimCalibration.h"
#include "SimRandom.h"
#include "SimRoom.h"
#include "SimRoomCalibrationSettings.h"

#include <optional>
#include <string>
#include <vector>

struct SimReply;

constexpr double framesPerSecond = 60.0;

/// p = scaling * transposed(rotation) * raw + translation.
struct SimExtra {
    SimRotation rotation;
    SimVector translation;
    double scaling = 1.0;
};

/// A finished calibration that has not been accepted yet.
struct SimNewCalibration {
    SimPose base;
    std::string coordinateType;
};

enum class SimActivity { None, Measuring, Calibrating, Error };

/// How the controller's time moves: with the wall clock, by itself never, or with every activity query.
enum class SimClock { Real, Stepped, Query };

/// The controller's own state; what it stores over a restart and what it does.
struct SimState {
    int versionMajor = 1;
    int versionMinor = 23;
    int versionThird = -1;

    SimActivity activity = SimActivity::None;
    bool available = true;
    bool changeable = true;
    bool strict = false; ///< refuses settings while it measures
    bool angleToolSupported = true;
    int errorCode = 0;
    std::string errorText;

    SimPose base; ///< raw coordinates = base * world coordinates
    SimExtra extra;
    std::optional<int> reference; ///< index of the reference body
    SimRoomCalibrationSettings roomCalibration;
    std::string lastCoordinateType = "none";
    std::optional<SimNewCalibration> newCalibration;
    std::string startedCoordinateType; ///< the coordinate type when the calibration was started

    SimClock clock = SimClock::Real;
    double queryStepSeconds = 0.2;
    double seconds = 0.0;
    unsigned frameNumber = 0;
    double timestampOffset = 36000.0;
};

/// Everything that a simulated controller and its room consist of. The request and control tables work on it.
struct SimMachine {
    SimState state;
    SimRoom room = SimRoom::standard();
    SimCalibration calibration;
    SimRandom random;
    RecordFaults recordFaults;
    std::vector<std::string> notes; ///< remarks on what a client did, not yet taken

    /// Moves the room and the calibration by that time and ends a calibration that is done.
    void advance(double seconds);

    /// Loses tracking and running work, keeps what is stored.
    void restart();

    /// Ends all running tip measurements.
    void dropMeasurements();

private:
    void finishCalibration();
    void failCalibration(const SimReply &error);
};
