#include "SimGeometry.h"

#include <cmath>
#include <cstddef>

namespace
{

constexpr double radiansPerDegree = 3.14159265358979323846 / 180.0;

std::size_t at(int row, int column)
{
    return static_cast<std::size_t>(3 * row + column);
}

SimVector row(const SimRotation &a, int index)
{
    return {a.rows[at(index, 0)], a.rows[at(index, 1)], a.rows[at(index, 2)]};
}

double dot(const SimVector &a, const SimVector &b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

} // namespace

SimVector operator+(const SimVector &a, const SimVector &b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

SimVector operator-(const SimVector &a, const SimVector &b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

SimVector operator*(double factor, const SimVector &a)
{
    return {factor * a.x, factor * a.y, factor * a.z};
}

SimVector cross(const SimVector &a, const SimVector &b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double squaredLength(const SimVector &a)
{
    return dot(a, a);
}

double length(const SimVector &a)
{
    return std::sqrt(squaredLength(a));
}

SimRotation SimRotation::fromDegrees(double rx, double ry, double rz)
{
    const double cx = std::cos(rx * radiansPerDegree), sx = std::sin(rx * radiansPerDegree);
    const double cy = std::cos(ry * radiansPerDegree), sy = std::sin(ry * radiansPerDegree);
    const double cz = std::cos(rz * radiansPerDegree), sz = std::sin(rz * radiansPerDegree);
    const SimRotation aboutX{{1, 0, 0, 0, cx, -sx, 0, sx, cx}};
    const SimRotation aboutY{{cy, 0, sy, 0, 1, 0, -sy, 0, cy}};
    const SimRotation aboutZ{{cz, -sz, 0, sz, cz, 0, 0, 0, 1}};
    return aboutX * aboutY * aboutZ;
}

std::array<double, 3> SimRotation::degrees() const
{
    constexpr double gimbalCosine = 1e-6;
    const double ry = std::atan2(rows[2], std::hypot(rows[5], rows[8])) / radiansPerDegree;
    if (std::hypot(rows[5], rows[8]) < gimbalCosine)
        return {std::atan2(rows[7], rows[4]) / radiansPerDegree, ry, 0.0};
    return {std::atan2(-rows[5], rows[8]) / radiansPerDegree, ry,
            std::atan2(-rows[1], rows[0]) / radiansPerDegree};
}

SimRotation SimRotation::fromRows(const SimVector &x, const SimVector &y, const SimVector &z)
{
    return {{x.x, x.y, x.z, y.x, y.y, y.z, z.x, z.y, z.z}};
}

SimVector SimRotation::column(int index) const
{
    return {rows[at(0, index)], rows[at(1, index)], rows[at(2, index)]};
}

SimRotation SimRotation::transposed() const
{
    return fromRows(column(0), column(1), column(2));
}

bool SimRotation::isOrthonormal(double tolerance) const
{
    for (int i = 0; i < 3; ++i) {
        for (int j = i; j < 3; ++j) {
            const double deviation = std::fabs(dot(row(*this, i), row(*this, j)) - (i == j ? 1.0 : 0.0));
            if (!(deviation < tolerance))
                return false;
        }
    }
    return dot(cross(row(*this, 0), row(*this, 1)), row(*this, 2)) > 0.0;
}

SimVector operator*(const SimRotation &a, const SimVector &v)
{
    return {dot(row(a, 0), v), dot(row(a, 1), v), dot(row(a, 2), v)};
}

SimRotation operator*(const SimRotation &a, const SimRotation &b)
{
    SimRotation product;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            product.rows[at(i, j)] = dot(row(a, i), b.column(j));
    }
    return product;
}

SimPose SimPose::inverse() const
{
    const SimRotation back = rotation.transposed();
    return {-1.0 * (back * position), back};
}

SimVector operator*(const SimPose &a, const SimVector &v)
{
    return a.rotation * v + a.position;
}

SimPose operator*(const SimPose &a, const SimPose &b)
{
    return {a * b.position, a.rotation * b.rotation};
}
