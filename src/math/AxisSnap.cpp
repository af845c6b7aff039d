#include "AxisSnap.h"

#include <algorithm>

namespace
{

/// The whole number -1, 0 or 1 that the value is near to, or the value itself.
double snapped(double value)
{
    constexpr double near = 1e-6;
    if (value > -near && value < near)
        return 0.0;
    if (value > 0.999999 && value < 1.000001)
        return 1.0;
    if (value > -1.000001 && value < -0.999999)
        return -1.0;
    return value;
}

bool isNearWholeNumber(double value)
{
    const double whole = snapped(value);
    return whole == 0.0 || whole == 1.0 || whole == -1.0;
}

} // namespace

void snapAxisAligned(std::array<double, 9> &values)
{
    if (std::all_of(values.begin(), values.end(), isNearWholeNumber))
        std::transform(values.begin(), values.end(), values.begin(), snapped);
}
