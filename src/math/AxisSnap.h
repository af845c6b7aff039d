#pragma once

#include <array>

/// Makes the nine values of a rotation exact if every one of them is within 1e-6 of 0, 1 or -1; else changes
/// nothing.
///
/// The order of the values does not matter. A zero of either sign becomes +0.
void snapAxisAligned(std::array<double, 9> &values);
