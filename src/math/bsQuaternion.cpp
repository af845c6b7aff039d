#include "bsQuaternion.h"

#include "AngleUnits.h"

#include <cmath>

namespace
{

using AngleUnits::radiansPerDegree;

} // namespace

bsQuaternion bsQuaternion::fromAxisAngle(double degrees, bsVector axis)
{
    axis.normalize();
    const double half = degrees * radiansPerDegree * 0.5;
    const double sine = std::sin(half);
    bsQuaternion result(sine * axis.x, sine * axis.y, sine * axis.z, std::cos(half));
    result.normalize();
    return result;
}

bsQuaternion bsQuaternion::fromAngles(double eta, double theta, double phi)
{
    return fromAxisAngle(eta, {1.0, 0.0, 0.0}) * fromAxisAngle(theta, {0.0, 1.0, 0.0}) *
           fromAxisAngle(phi, {0.0, 0.0, 1.0});
}

void bsQuaternion::normalize()
{
    const double length = std::sqrt(x * x + y * y + z * z + w * w);
    if (length < bsVector::shortestLength) {
        *this = identity();
        return;
    }
    const double factor = 1.0 / length;
    *this = {x * factor, y * factor, z * factor, w * factor};
}

bool bsQuaternion::isFinite() const
{
    return std::isfinite(x) && std::isfinite(y) && std::isfinite(z) && std::isfinite(w);
}

bsQuaternion operator*(const bsQuaternion &a, const bsQuaternion &b)
{
    bsQuaternion q(
        a.x * b.w + b.x * a.w + a.y * b.z - a.z * b.y, a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
        a.x * b.y + a.w * b.z - a.y * b.x + a.z * b.w, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z);
    q.normalize();
    return q;
}

bool operator==(const bsQuaternion &a, const bsQuaternion &b)
{
    return a.x == b.x && a.y == b.y && a.z == b.z && a.w == b.w;
}

bool operator!=(const bsQuaternion &a, const bsQuaternion &b)
{
    return !(a == b);
}
