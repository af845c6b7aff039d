#pragma once

#include <QList>
#include <QStringList>

class QWidget;

/// Goes through a window with the Tab key, as its user does. The window must be active.
namespace TabTour
{

/// The controls that the Tab key must visit, in reading order.
QList<QWidget *> stops(QWidget &window);

/// What is wrong on the way once around the window and, with Shift, once back, one sentence per fault. The
/// window's timers stand still meanwhile.
QStringList faults(QWidget &window);

/// Where the keyboard focus of the window is; null where the user would not find it: on nothing, on a control
/// that is hidden or disabled, or in another window.
QWidget *focus(const QWidget &window);

/// A key press that takes the way of the keys of a keyboard.
void press(const QWidget &window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

} // namespace TabTour
