#pragma once

#include <array>

/// A part of all rotations, with a centre and a bound for how far the rest of it is turned away from there.
///
/// Rotations are unit quaternions, of which q and -q are the same. One component at least has the largest
/// magnitude; divided by it, the other three lie between -1 and 1. So four cubes hold all rotations, each
/// cell is a box in one of them, and a cell is cut by halving the box. Source: H. Li, R. Hartley, ICCV 2007,
/// for the search over parts of the rotations; the cubes are the central projection of the sphere of
/// quaternions.
class RotationCell
{
public:
    /// Row by row.
    using Matrix = std::array<double, 9>;

    /// w, x, y, z; of any length.
    using Quaternion = std::array<double, 4>;

    /// The four cells that hold all rotations.
    [[nodiscard]] static std::array<RotationCell, 4> all();

    /// The rotation in the middle.
    [[nodiscard]] Quaternion centre() const;

    /// At least v^T W v for every rotation of the cell, v being the axis of the turn from the centre to it,
    /// in the frame that is rotated, with the length sin(angle / 2). `weights` is W, symmetric and positive.
    [[nodiscard]] double spread(const Matrix &weights) const;

    /// Two cells that hold all rotations of this one, cut across the side that adds most to the spread.
    [[nodiscard]] std::array<RotationCell, 2> halves(const Matrix &weights) const;

    [[nodiscard]] static Matrix matrixOf(const Quaternion &rotation);

private:
    using Axis = std::array<double, 3>;

    [[nodiscard]] std::array<Axis, 3> turnsAlongSides() const;

    int m_largest = 0; ///< the component that all are divided by
    Axis m_middle = {0.0, 0.0, 0.0};
    Axis m_half = {1.0, 1.0, 1.0};
};
