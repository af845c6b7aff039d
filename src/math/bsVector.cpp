#include "bsVector.h"

#include <cmath>

void bsVector::set(double xValue, double yValue, double zValue)
{
    x = xValue;
    y = yValue;
    z = zValue;
}

void bsVector::zero()
{
    set(0.0, 0.0, 0.0);
}

void bsVector::divide(double divisor)
{
    set(x / divisor, y / divisor, z / divisor);
}

void bsVector::normalize()
{
    const double size = length();
    if (size < shortestLength)
        return;
    divide(size);
}

double bsVector::length() const
{
    return std::sqrt(x * x + y * y + z * z);
}

bool bsVector::isFinite() const
{
    return std::isfinite(x) && std::isfinite(y) && std::isfinite(z);
}

bsVector operator+(const bsVector &a, const bsVector &b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

bsVector operator-(const bsVector &a, const bsVector &b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

bool operator==(const bsVector &a, const bsVector &b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

bool operator!=(const bsVector &a, const bsVector &b)
{
    return !(a == b);
}
