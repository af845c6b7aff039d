#pragma once

/// Angles are degrees at every door; inside the computations these factors lead to radians and back.
namespace AngleUnits
{

constexpr double degreesPerRadian = 57.29577951308232;
constexpr double radiansPerDegree = 0.017453292519943295;

} // namespace AngleUnits
