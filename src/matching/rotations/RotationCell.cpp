#include "RotationCell.h"

#include <algorithm>
#include <cmath>

namespace
{

double formOf(const RotationCell::Matrix &weights, const std::array<double, 3> &v)
{
    return v[0] * (weights[0] * v[0] + weights[1] * v[1] + weights[2] * v[2]) +
           v[1] * (weights[3] * v[0] + weights[4] * v[1] + weights[5] * v[2]) +
           v[2] * (weights[6] * v[0] + weights[7] * v[1] + weights[8] * v[2]);
}

} // namespace

std::array<RotationCell, 4> RotationCell::all()
{
    std::array<RotationCell, 4> cells;
    for (std::size_t i = 0; i < cells.size(); ++i)
        cells[i].m_largest = static_cast<int>(i);
    return cells;
}

RotationCell::Quaternion RotationCell::centre() const
{
    Quaternion q = {};
    const auto largest = static_cast<std::size_t>(m_largest);
    q[largest] = 1.0;
    for (std::size_t side = 0; side < 3; ++side)
        q[(largest + 1 + side) % 4] = m_middle[side];
    return q;
}

/// For each side the vector part of conj(q) s / |q|, q being the middle and s the step from it to that side.
/// The middle itself adds none, so that of a corner is the sum of three, each with one of both signs.
std::array<RotationCell::Axis, 3> RotationCell::turnsAlongSides() const
{
    const Quaternion q = centre();
    const double length = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
    const std::array<Axis, 4> products = {
        {{-q[1], -q[2], -q[3]}, {q[0], -q[3], q[2]}, {q[3], q[0], -q[1]}, {-q[2], q[1], q[0]}}};
    std::array<Axis, 3> turns;
    for (std::size_t side = 0; side < 3; ++side) {
        const Axis &product = products[(static_cast<std::size_t>(m_largest) + 1 + side) % 4];
        for (std::size_t axis = 0; axis < 3; ++axis)
            turns[side][axis] = m_half[side] / length * product[axis];
    }
    return turns;
}

/// Before the quaternions are brought to unit length the form is convex, so it is largest at a corner; the
/// division is bounded by the shortest of the box.
double RotationCell::spread(const Matrix &weights) const
{
    const std::array<Axis, 3> turns = turnsAlongSides();
    double largest = 0.0;
    for (int corner = 0; corner < 4; ++corner) {
        const double second = corner & 1 ? 1.0 : -1.0, third = corner & 2 ? 1.0 : -1.0;
        Axis turn;
        for (std::size_t axis = 0; axis < 3; ++axis)
            turn[axis] = turns[0][axis] + second * turns[1][axis] + third * turns[2][axis];
        largest = std::max(largest, formOf(weights, turn));
    }
    double shortest = 1.0;
    for (std::size_t side = 0; side < 3; ++side) {
        const double nearest = std::max(0.0, std::fabs(m_middle[side]) - m_half[side]);
        shortest += nearest * nearest;
    }
    return largest / shortest;
}

std::array<RotationCell, 2> RotationCell::halves(const Matrix &weights) const
{
    const std::array<Axis, 3> turns = turnsAlongSides();
    std::size_t widest = 0;
    double largest = -1.0;
    for (std::size_t side = 0; side < 3; ++side) {
        const double form = formOf(weights, turns[side]);
        if (form > largest) {
            largest = form;
            widest = side;
        }
    }
    std::array<RotationCell, 2> cells = {*this, *this};
    for (std::size_t i = 0; i < 2; ++i) {
        cells[i].m_half[widest] *= 0.5;
        cells[i].m_middle[widest] += (i == 0 ? -1.0 : 1.0) * cells[i].m_half[widest];
    }
    return cells;
}

RotationCell::Matrix RotationCell::matrixOf(const Quaternion &rotation)
{
    const double w = rotation[0], x = rotation[1], y = rotation[2], z = rotation[3];
    const double s = 2.0 / (w * w + x * x + y * y + z * z);
    return {1.0 - s * (y * y + z * z), s * (x * y - w * z),       s * (x * z + w * y),
            s * (x * y + w * z),       1.0 - s * (x * x + z * z), s * (y * z - w * x),
            s * (x * z - w * y),       s * (y * z + w * x),       1.0 - s * (x * x + y * y)};
}
