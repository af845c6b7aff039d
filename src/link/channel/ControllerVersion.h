#pragma once

struct BackendVersions;

/// What the controller can do, by the version of its interface.
enum class ControllerFeature {
    CameraTable,          ///< camera rooms and the configuration lock
    ExtraTransformation,  ///< reading and writing the extra transformation
    TrackingAvailability, ///< asking whether tracking is possible
    HasRoomQuery,         ///< asking whether a camera has a room
    LastCoordinateType,   ///< the coordinate type of the last room calibration
    PointMeasurement,     ///< measuring points with the measurement tool
    CalibrationDuration,  ///< reading the duration of the room calibration
    StepDuration,         ///< duration of a calibration step
    CameraProgress,       ///< calibration progress of every camera
    AngleToolCalibration  ///< room calibration with the angle tool alone
};

/// The one version rule of the module.
namespace ControllerVersion
{

/// Whether an interface version is at least `major`.`minor`.
///
/// Major, then minor are compared as whole numbers; with both equal the third number must be 0 or more, or
/// exactly -1 (not known). Without a version record nothing passes.
bool isAtLeast(const BackendVersions *versions, int major, int minor);

/// Whether the interface version offers a feature.
bool supports(const BackendVersions *versions, ControllerFeature feature);

} // namespace ControllerVersion
