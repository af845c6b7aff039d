#pragma once

#include <QPalette>

#include <initializer_list>

class QWidget;

/// Gives the texts that a widget writes in these roles a color of their own, in the states of these groups.
void colorText(QWidget *widget, const QColor &color, std::initializer_list<QPalette::ColorRole> roles,
               std::initializer_list<QPalette::ColorGroup> groups);
