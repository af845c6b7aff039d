#pragma once

#include <QPoint>
#include <QWindow>

/// Mouse and keys as the windowing system delivers them: to a place of a window, whatever is there.
///
/// A window may go away in the middle of each.
namespace Hand
{

void click(QWindow *window, const QPoint &place, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
void doubleClick(QWindow *window, const QPoint &place, Qt::MouseButton button);

/// Goes from one place to the other in some steps, with the button held down.
void drag(QWindow *window, const QPoint &from, const QPoint &to, Qt::MouseButton button,
          Qt::KeyboardModifiers modifiers);

/// Whole clicks of the wheel; positive ones turn away from the user.
void turnWheel(QWindow *window, const QPoint &place, int clicks, Qt::KeyboardModifiers modifiers);

void press(QWindow *window, Qt::Key key, Qt::KeyboardModifiers modifiers);

} // namespace Hand
