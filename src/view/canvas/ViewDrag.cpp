#include "ViewDrag.h"

#include "ViewPose.h"

ViewDrag::ViewDrag(ViewPose &pose)
    : m_pose(pose)
{
}

void ViewDrag::press(Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    const bool withControl = modifiers.testFlag(Qt::ControlModifier);
    if (button == Qt::RightButton && withControl)
        m_mode = Mode::Rotating;
    else if (button == Qt::LeftButton && withControl)
        m_mode = Mode::Panning;
    else if (button == Qt::LeftButton && modifiers.testFlag(Qt::ShiftModifier))
        m_mode = Mode::Zooming;
}

void ViewDrag::to(const QPoint &position, double scaleUnit)
{
    const QPoint distance = position - m_position;
    m_position = position;
    if (m_mode == Mode::Panning)
        m_pose.translate(distance.x() * scaleUnit, -distance.y() * scaleUnit, 0.0);
    else if (m_mode == Mode::Zooming)
        m_pose.translate(0.0, 0.0, distance.y() * scaleUnit);
    else if (m_mode == Mode::Rotating)
        m_pose.rotate(distance.y(), distance.x(), 0.0);
}
