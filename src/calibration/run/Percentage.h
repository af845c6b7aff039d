#pragma once

/// Whole numbers out of the fractions that the controller reports.
///
/// The roundings differ on purpose: the overall progress of one step is a double product rounded down (0.29
/// gives 28), that of a camera a single-precision product whose fraction is dropped (0.29 gives 29). Results
/// are kept within the int range; what is not a number gives 0.
namespace Percentage
{

int floored(double fraction);
int truncated(double fraction);
int ofCamera(float fraction);

} // namespace Percentage
