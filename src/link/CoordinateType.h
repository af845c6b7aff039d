#pragma once

/// The coordinate type of a room calibration.
enum class CoordinateType { Unknown, Normal, Powerwall, PowerwallStanding, MidCamera, None };
