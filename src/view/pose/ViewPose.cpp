#include "ViewPose.h"

ViewPose::ViewPose()
    : m_position(0.0, 0.0, -300.0)
{
    save();
}

void ViewPose::save()
{
    m_savedPosition = m_position;
    m_savedOrientation = m_orientation;
}

void ViewPose::rotate(double x, double y, double z)
{
    set(m_position, bsQuaternion::fromAngles(x, y, z) * m_savedOrientation);
}

void ViewPose::translate(double x, double y, double z)
{
    set(m_savedPosition + bsVector(x, y, z), m_orientation);
}

void ViewPose::setOrientation(const bsMatrix &rotation)
{
    set(m_position, rotation.toOrientation());
    save();
}

void ViewPose::setPosition(const bsVector &position)
{
    set(position, m_orientation);
    save();
}

void ViewPose::transform(const bsMatrix &m)
{
    const bsMatrix product = bsMatrix::product(matrix(), m);
    if (product.isFinite())
        set(product.column(3), product.toOrientation());
    save();
}

bsMatrix ViewPose::matrix() const
{
    bsMatrix result = bsMatrix::fromQuaternion(m_orientation);
    result.setColumn(3, m_position, 1.0);
    return result;
}

void ViewPose::set(const bsVector &position, const bsQuaternion &orientation)
{
    if (!position.isFinite() || !orientation.isFinite())
        return;
    m_position = position;
    m_orientation = orientation;
}
