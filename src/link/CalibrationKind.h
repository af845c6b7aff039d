#pragma once

/// The controller's names of the calibrations that are treated by name.
namespace CalibrationKind
{

constexpr auto room = "room";

/// Only its end or an error ends it.
constexpr auto reflexScan = "reflex_scan";

} // namespace CalibrationKind
