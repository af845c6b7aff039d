#include "TextColor.h"

#include <QWidget>

void colorText(QWidget *widget, const QColor &color, std::initializer_list<QPalette::ColorRole> roles,
               std::initializer_list<QPalette::ColorGroup> groups)
{
    QPalette palette = widget->palette();
    for (const QPalette::ColorGroup group : groups) {
        for (const QPalette::ColorRole role : roles)
            palette.setColor(group, role, color);
    }
    widget->setPalette(palette);
}
