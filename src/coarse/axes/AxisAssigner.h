#pragma once

#include "CoordinateType.h"

#include <array>

/// The axes that stand in the six directions of a room picture.
///
/// Axis codes: 0 x, 1 -x, 2 y, 3 -y, 4 z, 5 -z; flipping the lowest bit negates an axis.
/// Order: left, right, top, bottom, bottom-left (towards the viewer), top-right (away from the viewer).
using DirectionAxes = std::array<int, 6>;

/// Room rotation angles in whole degrees, in the order rx (eta), ry (theta), rz (phi).
using WholeAngles = std::array<int, 3>;

/// Assigns the axes of the room coordinate system to the directions of a room picture, in steps of 90
/// degrees.
///
/// An assignment is one of 24 right-handed triples (right, top, towards the viewer). Which rotation stands
/// for an assignment depends on the coordinate type of the room calibration: without rotation, "normal" has x
/// to the right and z up, every other type x to the right and y up.
class AxisAssigner
{
public:
    static constexpr int axisCodes = 6;

    /// The text of an axis code: "x", "-x", "y", "-y", "z" or "-z".
    static const char *axisText(int axis);
    static int negated(int axis) { return axis ^ 1; }

    /// Takes a coordinate type and goes to its default assignment; the unknown type is taken as none.
    void setCoordinateType(CoordinateType type);
    CoordinateType coordinateType() const { return m_type; }
    bool hasCoordinateType() const { return m_type != CoordinateType::None; }

    void assignDefault();

    /// Goes to the assignment that a room with these angles (degrees) shows. Each angle is rounded up to a
    /// whole number first; where one is then no multiple of 90, or is not finite, the result is false and the
    /// default assignment is taken.
    [[nodiscard]] bool assignAngles(double rx, double ry, double rz);

    /// Changes one axis and keeps the other, unless both lie on one line: then the first assignment of the
    /// table that has the chosen axis is taken. Codes outside 0 to 5 are ignored.
    void chooseRight(int axis);
    void chooseTop(int axis);

    int right() const;
    int top() const;
    DirectionAxes directionAxes() const;

    /// The rotation of the present assignment.
    WholeAngles angles() const;

private:
    void assignTurned(const WholeAngles &angles);

    CoordinateType m_type = CoordinateType::None;
    int m_row = 0; ///< of the assignments; the first is the default without a coordinate type
};
