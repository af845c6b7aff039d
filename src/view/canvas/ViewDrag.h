#pragma once

#include <QPoint>

class ViewPose;

/// What the mouse does to the view while a button is held: with Ctrl the left button pans, with Shift it
/// zooms, and with Ctrl the right one rotates.
///
/// A pixel is `scaleUnit` millimetres of the room, or a degree.
class ViewDrag
{
public:
    /// `pose` is not owned; it is changed relative to what it saved last.
    explicit ViewDrag(ViewPose &pose);

    [[nodiscard]] bool isOn() const { return m_mode != Mode::Idle; }

    void press(Qt::MouseButton button, Qt::KeyboardModifiers modifiers);

    /// Rotates from here on, without a button.
    void rotate() { m_mode = Mode::Rotating; }
    void end() { m_mode = Mode::Idle; }

    /// The mouse is here, and the view has nothing to do with how it came.
    void startAt(const QPoint &position) { m_position = position; }

    /// Moves the view by the way to here.
    void to(const QPoint &position, double scaleUnit);

private:
    enum class Mode { Idle, Panning, Zooming, Rotating };

    ViewPose &m_pose;
    Mode m_mode = Mode::Idle;
    QPoint m_position;
};
