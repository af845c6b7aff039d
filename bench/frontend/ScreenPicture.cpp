#include "ScreenPicture.h"

#include "TextFile.h"

#include <QApplication>
#include <QBuffer>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

namespace
{

constexpr int margin = 12;

QRect usedPart(const QScreen &screen)
{
    QRect used;
    const auto windows = QApplication::topLevelWidgets();
    for (const QWidget *widget : windows) {
        if (widget->isVisible())
            used |= widget->frameGeometry();
    }
    return used.adjusted(-margin, -margin, margin, margin) & screen.geometry();
}

} // namespace

QPixmap screenPicture()
{
    QScreen *screen = QGuiApplication::primaryScreen();
    if (QGuiApplication::platformName() == QLatin1String("xcb")) {
        const QRect part = usedPart(*screen).translated(-screen->geometry().topLeft());
        return screen->grabWindow(0, part.x(), part.y(), part.width(), part.height());
    }
    QWidget *active = QApplication::activeWindow();
    return active != nullptr ? active->grab() : QPixmap();
}

bool saveScreenPicture(const QString &file)
{
    const QPixmap picture = screenPicture();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return !picture.isNull() && picture.save(&buffer, "PNG") && !saveText(file, bytes);
}
