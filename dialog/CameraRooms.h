#pragma once

class ControllerAccess;

/// Whether the cameras have rooms, so that there is something to adjust: at least two of them where the
/// controller can be asked for that, otherwise none without. False when their number cannot be read.
[[nodiscard]] bool camerasHaveRooms(const ControllerAccess &controller);
