#pragma once

#include <QString>

class QPixmap;

/// A picture of everything that a user sees of this program: the part of the screen with its windows, or on
/// platforms that show no program the screen, the active window.
QPixmap screenPicture();

/// Saves such a picture; false when that is not possible.
[[nodiscard]] bool saveScreenPicture(const QString &file);
