#pragma once

#include <QList>

class QWidget;

/// The order in which a window's layouts are read: row by row, each from left to right.
namespace ReadingOrder
{

/// The visible widgets that hold no layout of others, and the bars of the tabs.
QList<QWidget *> of(QWidget &window);

/// Whether the widgets inside are parts of one control, such as the text field of a spin box.
bool isWholeControl(const QWidget *widget);

} // namespace ReadingOrder
