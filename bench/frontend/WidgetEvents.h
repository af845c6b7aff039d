#pragma once

#include <QString>
#include <Qt>

class QPoint;
class QWidget;

/// Keys and clicks as the window system delivers them: they reach the widget through its window, with focus,
/// shortcuts and mnemonics.
namespace WidgetEvents
{

/// The child with that object name, or null; visible children only.
QWidget *find(const QWidget *window, const QString &name);

/// Whether the widget is on the screen and its window has the keyboard; asks for the keyboard if not.
bool isReady(QWidget *widget);

/// In the middle of the widget, or at a place of it.
void click(QWidget *widget);
void click(QWidget *widget, const QPoint &position);
void pressKey(QWidget *widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Replaces what stands in a line edit or a spin box: a click into it, everything selected, the text, Tab.
void type(QWidget *editor, const QString &text);

} // namespace WidgetEvents
