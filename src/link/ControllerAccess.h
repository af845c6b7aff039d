#pragma once

#include "CalibrationAnswers.h"
#include "ControllerVersion.h"
#include "CoordinateType.h"
#include "RoomTrafoData.h"

#include <QByteArray>

#include <array>
#include <optional>
#include <vector>

class IOManager;
class Requester;
struct BackendVersions;

/// A yes-or-no answer of the controller. Only the exact words count.
enum class Reply { Failed, Yes, No, Other };

/// What the controller is doing.
enum class Activity { Failed, None, Measuring, Calibrating, Error, Other };

/// The room of a camera as the controller tells it.
enum class CameraRoom { Failed, None, Present };

/// A coordinate type that the controller offers for the calibration with the angle tool.
struct OfferedCoordinateType {
    QByteArray identifier;
    QByteArray description; ///< for people, as the controller sends it; the identifier when it sends none
};

/// The module's one way to the controller: a named operation for every command and parameter that it uses.
///
/// Every text for the controller, every failure report and every version threshold of the module stands
/// behind this class. An operation that fails reports the failure to the host in its own words, where it has
/// any, and then returns false, nothing, or the default that its comment names; the rest of an operation that
/// consists of several calls is as its comment says. Values of a failed read are never used. A missing
/// command channel behaves like one whose every call fails.
///
/// Units: millimetres, seconds. Cameras and tools are numbered from 1. All calls are synchronous and belong
/// on the GUI thread. Neither pointer is owned; both may be null.
class ControllerAccess
{
public:
    ControllerAccess(IOManager *commands, const BackendVersions *versions);

    bool supports(ControllerFeature feature) const;

    // --- Measurement data

    /// Subscribes to, or ends the subscription of, the record kinds that the module works with.
    void subscribe(Requester *requester) const;
    void unsubscribe(Requester *requester) const;

    // --- Tracking

    /// Silent on failure.
    Reply trackingAvailable() const;
    Activity activity() const;

    [[nodiscard]] bool startTracking() const;
    /// Asks for the activity and stops tracking only while the controller measures.
    bool stopTrackingIfMeasuring() const;
    /// The bare commands, whose results nobody looks at.
    void sendTrackingStart() const;
    void sendTrackingStop() const;

    // --- Configuration and cameras

    /// Silent on failure.
    Reply configurationChangeable() const;
    /// At most 1000, never negative.
    std::optional<int> numberOfCameras() const;
    /// False on failure, without a report.
    bool cameraHasRoom(int camera) const;
    /// Silent on failure.
    CameraRoom roomOfCamera(int camera) const;
    /// The camera's position in mm; zeros when it cannot be read or has no room, and for numbers that are
    /// missing in the answer.
    std::array<double, 3> positionOfCamera(int camera) const;

    // --- Extra transformation, as the dialog edits it

    /// Silent; what cannot be read, or does not convert, is neutral (identity, zeros, 1). Controllers without
    /// the extra transformation are not asked.
    RoomTrafoData roomAdjustment() const;
    /// Writes rotation, translation and scaling; each is attempted whatever became of the others. Controllers
    /// without the extra transformation get nothing.
    void writeRoomAdjustment(const RoomTrafoData &data) const;

    // --- Extra transformation and reference target, as the measuring frame needs them

    /// Silent on failure.
    std::optional<double> extraScaling() const;
    /// Translation, rotation, scaling; ends at the first failure.
    std::optional<RoomTrafoData> extraTransformation() const;
    /// Each of the three is attempted.
    void setNeutralExtraTransformation() const;
    void restoreExtraTransformation(const RoomTrafoData &data) const;

    /// The name of the reference target; empty when there is none or the read failed.
    QByteArray referenceTarget() const;
    [[nodiscard]] bool unsetReferenceTarget() const;
    [[nodiscard]] bool restoreReferenceTarget(const QByteArray &target) const;

    // --- Measurement tool

    /// Asks as the fine panel does, for the report of a failure only.
    void checkMeasurementTool() const;
    /// Silent on failure.
    Reply measurementToolAvailable() const;
    /// 0 on failure; at most 1000, more are not asked about.
    int numberOfMeasurementTools() const;
    /// False on failure, with a report.
    bool tipIsCalibrated(int tool) const;
    /// False on failure, without a report.
    bool tipIsCalibratedQuietly(int tool) const;
    static constexpr double defaultMeasurementSeconds = 1.0;
    static constexpr double defaultToleranceMm = 1.5;
    /// Seconds; the default on failure, without a report.
    double measurementDuration(int tool) const;
    /// Millimetres; the default on failure.
    double tipTolerance(int tool) const;
    bool startTipMeasurement(int tool) const;

    // --- Coordinate type of the room calibration

    /// The type of the last room calibration, or the current one where the controller does not know the last.
    CoordinateType coordinateType() const;

    // --- Calibrations that the controller performs itself
    // `kind` is the controller's name of a calibration; steps count from 1. Only the count of the cameras
    // reports its failure. Raw commands are judged by the answer alone.

    /// Empty on failure.
    QByteArray calibrationDescription(const QByteArray &kind) const;
    /// 1 on failure.
    int calibrationSteps(const QByteArray &kind) const;
    /// Seconds before a step, 0 for none or on failure.
    int announcedPause(const QByteArray &kind, int step) const;
    /// The same from the raw query: nothing when the answer is not yes.
    std::optional<int> stepPause(const QByteArray &kind, int step) const;
    [[nodiscard]] bool startCalibration(const QByteArray &kind) const;
    void stopCalibration(const QByteArray &kind) const;
    /// Fraction of the whole calibration, 0 to 1.
    std::optional<double> calibrationProgress() const;
    CalibrationStep activeStep() const;
    std::optional<StepProgress> stepProgress() const;
    /// Seconds.
    std::optional<double> stepDuration(const QByteArray &kind, int step) const;
    /// The controller's sentence about its error, in its own encoding.
    QByteArray calibrationError() const;
    /// At most 1000, never negative.
    std::optional<int> numberOfCamerasToCalibrate() const;
    QByteArray cameraSerial(int camera) const;
    /// Fraction, 0 when it cannot be read.
    float cameraProgress(int camera) const;

    // --- Room calibration with the angle tool

    /// Those that suit the angle tool, in the controller's order. One without a readable identifier is left
    /// out; at most 1000 are asked for.
    std::vector<OfferedCoordinateType> coordinateTypesForAngleTool() const;
    /// The identifier of the chosen type, "normal" on failure.
    QByteArray chosenCoordinateType() const;
    /// Marker distances A, B, C in mm.
    std::optional<std::array<double, 3>> angleToolDistances() const;
    /// Millimetres; controllers that do not know the height are not asked.
    std::optional<double> angleToolHeight() const;
    [[nodiscard]] bool chooseAngleToolCalibration() const;
    void setAngleToolDistances(const std::array<double, 3> &distances) const;
    void setAngleToolHeight(double height) const;
    /// Seconds; 30 on failure and for controllers without this parameter.
    double roomCalibrationDuration() const;
    /// To the few seconds that the angle tool needs.
    void shortenRoomCalibration() const;
    void restoreRoomCalibrationDuration(double seconds) const;
    void chooseCoordinateType(const QByteArray &identifier) const;
    /// Notes for the host's log.
    void noteCalibrationStarted() const;
    void noteCalibrationCancelled() const;
    /// Makes the controller adopt the calibration that has just ended.
    [[nodiscard]] bool acceptNewCalibration() const;
    /// Starts tracking when the controller is idle or in error and tracking is possible.
    void restartTrackingAfterCalibration() const;

private:
    std::optional<int> cameraCount() const;
    int numberOfCoordinateTypes() const;
    void report(const char *message) const;
    bool reportUnless(bool success, const char *message) const;
    std::optional<QByteArray> coordinateTypeText() const;
    std::optional<QByteArray> presentCoordinateType() const;

    IOManager *m_commands;
    const BackendVersions *m_versions;
};
