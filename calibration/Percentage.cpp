#include "Percentage.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

int whole(double number)
{
    constexpr double smallest = std::numeric_limits<int>::min();
    constexpr double largest = std::numeric_limits<int>::max();
    return std::isnan(number) ? 0 : int(std::clamp(number, smallest, largest));
}

} // namespace

namespace Percentage
{

int floored(double fraction)
{
    return whole(std::floor(fraction * 100.0));
}

int truncated(double fraction)
{
    return whole(fraction * 100.0);
}

int ofCamera(float fraction)
{
    const float percent = fraction * 100.0F;
    return whole(double(percent));
}

int remainingSeconds(double stepFraction, double durationSeconds)
{
    return whole((1.0 - stepFraction) * durationSeconds);
}

} // namespace Percentage
