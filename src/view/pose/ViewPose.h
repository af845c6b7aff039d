#pragma once

#include "bsMatrix.h"
#include "bsQuaternion.h"
#include "bsVector.h"

/// Where the view's camera sees the room: a rotation and a translation in millimetres.
///
/// Relative changes build on the saved pose, so a drag or an edit does not accumulate until it is saved.
/// Requests that would lead to numbers that are not finite change nothing.
class ViewPose
{
public:
    /// Starts 300 mm in front of the room's origin, unrotated.
    ViewPose();

    void save();

    /// orientation = Rx(x) * Ry(y) * Rz(z) * saved orientation, degrees.
    void rotate(double x, double y, double z);

    /// position = saved position + (x, y, z).
    void translate(double x, double y, double z);

    /// Set the orientation or the position, absolute, and save both.
    void setOrientation(const bsMatrix &rotation);
    void setPosition(const bsVector &position);

    /// Multiplies the view matrix by `m` from the right and saves the result.
    void transform(const bsMatrix &m);

    [[nodiscard]] const bsVector &position() const { return m_position; }
    [[nodiscard]] const bsQuaternion &orientation() const { return m_orientation; }

    /// The view matrix: takes a point of the room into the camera's frame.
    [[nodiscard]] bsMatrix matrix() const;

private:
    void set(const bsVector &position, const bsQuaternion &orientation);

    bsVector m_position;
    bsQuaternion m_orientation;
    bsVector m_savedPosition;
    bsQuaternion m_savedOrientation;
};
