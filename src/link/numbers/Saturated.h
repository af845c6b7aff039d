#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

/// The whole part of a number, kept within the int range; what is not a number gives 0.
inline int saturated(double number)
{
    constexpr double smallest = std::numeric_limits<int>::min();
    constexpr double largest = std::numeric_limits<int>::max();
    return std::isnan(number) ? 0 : static_cast<int>(std::clamp(number, smallest, largest));
}

/// The number, kept within the int range.
inline int saturated(long number)
{
    return static_cast<int>(
        std::clamp<long>(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}
