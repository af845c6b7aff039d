#pragma once

class QPixmap;

/// What the windows of a calibration have in their title bars.
[[nodiscard]] QPixmap calibrationIcon();
