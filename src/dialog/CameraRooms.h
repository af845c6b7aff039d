#pragma once

class QObject;
class TrackingAccess;

/// Whether there is a room to adjust; false when the number of cameras cannot be read.
///
/// Where the controller can be asked whether a camera has a room, two of them must; a failed query counts as
/// no. An older controller is asked for the rooms themselves, and no camera may answer that it has none; here
/// a failed query counts as a room. `owner` is whom the access goes with; when that is destroyed in a call,
/// nothing more is asked, and there is no room.
[[nodiscard]] bool camerasHaveRooms(const TrackingAccess &controller, const QObject *owner);
