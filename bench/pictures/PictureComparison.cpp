#include "PictureComparison.h"

#include <QImage>

#include <algorithm>
#include <cstdlib>

namespace
{

constexpr int shrink = 4;           // pixels that become one
constexpr int visibleDistance = 24; // of 255, in the colour where it is largest

int distance(QRgb one, QRgb other)
{
    return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                     std::abs(qBlue(one) - qBlue(other))});
}

QImage smaller(const QImage &picture)
{
    const QSize size((picture.width() + shrink - 1) / shrink, (picture.height() + shrink - 1) / shrink);
    return picture.convertToFormat(QImage::Format_RGB32)
        .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QString sizeText(const QImage &picture)
{
    return QStringLiteral("%1 x %2").arg(picture.width()).arg(picture.height());
}

} // namespace

std::optional<QString> PictureComparison::visibleDifference(const QImage &one, const QImage &other)
{
    if (one.size() != other.size())
        return QStringLiteral("the sizes are %1 and %2").arg(sizeText(one), sizeText(other));
    const QImage left = smaller(one);
    const QImage right = smaller(other);
    QRect differs;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            if (distance(left.pixel(x, y), right.pixel(x, y)) > visibleDistance)
                differs |= QRect(x * shrink, y * shrink, shrink, shrink);
        }
    }
    if (differs.isNull())
        return std::nullopt;
    return QStringLiteral("they differ within %1 x %2 pixels at %3, %4")
        .arg(differs.width())
        .arg(differs.height())
        .arg(differs.x())
        .arg(differs.y());
}
