#include "DarkPalette.h"

QPalette darkPalette()
{
    QPalette palette(QColor(53, 53, 53), QColor(53, 53, 53));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                           QPalette::ToolTipText, QPalette::BrightText})
        palette.setColor(role, Qt::white);
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::AlternateBase, QColor(53, 53, 53));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(150, 150, 150));
    return palette;
}
