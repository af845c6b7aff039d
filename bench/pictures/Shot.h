#pragma once

#include <QImage>

class QString;
class QWidget;

/// Pictures of what stands on the screen, with whatever stands in front of it.
namespace Shot
{

/// Of a window, or of a part of one.
QImage of(const QWidget &widget);
QImage ofAllWindows();

/// As a PNG file without dates or texts; false when that is not possible.
[[nodiscard]] bool save(const QImage &picture, const QString &file);

} // namespace Shot
