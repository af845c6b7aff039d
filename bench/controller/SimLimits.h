#pragma once

/// Limits and formats that scenarios, control lines and answers share.
namespace SimLimits
{

inline constexpr double largestSigmaMm = 1000.0;         ///< of tremor and noise
inline constexpr double longestDurationSeconds = 3600.0; ///< of a measurement, a calibration or a part of it
inline constexpr double longestWaitSeconds = 600.0;      ///< that one line lets pass
inline constexpr int millimetreDecimals = 3;             ///< of lengths in answers

} // namespace SimLimits
