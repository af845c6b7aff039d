#pragma once

/// The coordinate type of a room calibration; the numbers are the codes that the coarse adjustment works
/// with.
enum class CoordinateType {
    Unknown = -1,
    Normal = 0,
    Powerwall = 1,
    PowerwallStanding = 2,
    MidCamera = 3,
    None = 5
};
