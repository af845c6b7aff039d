#include "Shot.h"

#include "ScreenPicture.h"

#include <QPixmap>
#include <QScreen>
#include <QWidget>

namespace Shot
{

QImage of(const QWidget &widget)
{
    const QPoint place = widget.mapToGlobal(QPoint(0, 0)) - widget.screen()->geometry().topLeft();
    return widget.screen()
        ->grabWindow(0, place.x(), place.y(), widget.width(), widget.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

QImage ofAllWindows()
{
    return screenPicture().toImage().convertToFormat(QImage::Format_RGB32);
}

bool save(const QImage &picture, const QString &file)
{
    constexpr int smallest = 0; // files, which takes longest
    return picture.save(file, "PNG", smallest);
}

} // namespace Shot
