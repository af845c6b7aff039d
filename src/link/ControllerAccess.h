#pragma once

#include "ControllerChannel.h"
#include "ControllerReply.h"
#include "CoordinateType.h"
#include "RoomTrafoData.h"

#include <QByteArray>

#include <array>
#include <optional>

class Requester;

/// The room of a camera as the controller tells it.
enum class CameraRoom { Failed, None, Present };

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

    bool supports(ControllerFeature feature) const { return m_channel.supports(feature); }

    // --- Measurement data

    /// Subscribes to, or ends the subscription of, the record kinds that the module works with.
    void subscribe(Requester *requester) const;
    void unsubscribe(Requester *requester) const;

    // --- Tracking

    /// Silent on failure.
    Reply trackingAvailable() const;
    void startTracking() const;
    /// Asks for the activity and stops tracking only while the controller measures.
    void stopTrackingIfMeasuring() const;

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
    void startTipMeasurement(int tool) const;

    // --- Coordinate type of the room calibration

    /// The type of the last room calibration, or the current one where the controller does not know the last.
    CoordinateType coordinateType() const;

private:
    ControllerChannel m_channel;
};
