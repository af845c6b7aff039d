#include "Percentage.h"

#include "Saturated.h"

#include <cmath>

namespace Percentage
{

int floored(double fraction)
{
    return saturated(std::floor(fraction * 100.0));
}

int truncated(double fraction)
{
    return saturated(fraction * 100.0);
}

int ofCamera(float fraction)
{
    const float percent = fraction * 100.0F;
    return saturated(double(percent));
}

} // namespace Percentage
