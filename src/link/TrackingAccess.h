#pragma once

#include "ControllerChannel.h"
#include "ControllerReply.h"
#include "CoordinateType.h"
#include "RoomTrafoData.h"

#include <array>
#include <optional>

class Requester;

/// The room of a camera as the controller tells it.
enum class CameraRoom { Failed, None, Present };

/// The module's way to tracking, to the cameras and their rooms, and to the room adjustment itself: the extra
/// transformation as the dialog edits it.
///
/// Units: millimetres. Cameras count from 1. A failure is reported unless the comment says otherwise, and
/// then the value is what the comment names; values of a failed read are never used. All calls are
/// synchronous and belong on the GUI thread; the host may destroy the access in any of them.
class TrackingAccess
{
public:
    /// Neither pointer is owned; both may be null: without a channel every call fails.
    TrackingAccess(IOManager *commands, const BackendVersions *versions);

    bool supports(ControllerFeature feature) const { return m_channel.supports(feature); }

    // --- Measurement data

    /// The record kinds that the module works with are counted from 0, in the order in which they are
    /// subscribed.
    static constexpr std::size_t recordKindCount = 5;
    void subscribe(std::size_t kind, Requester *requester) const;
    void unsubscribe(std::size_t kind, Requester *requester) const;

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

    // --- Room adjustment

    /// Silent; what cannot be read, or does not convert, is neutral (identity, zeros, 1). Controllers without
    /// the extra transformation are not asked.
    RoomTrafoData roomAdjustment() const;
    /// Writes rotation, translation and scaling; each is attempted whatever became of the others. Controllers
    /// without the extra transformation get nothing.
    void writeRoomAdjustment(const RoomTrafoData &data) const;

    /// The type of the last room calibration, or the present one where the controller does not know the last;
    /// Unknown on failure.
    CoordinateType coordinateType() const;

private:
    ControllerChannel m_channel;
};
