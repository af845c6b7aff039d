#pragma once

/// Which parts of an editor are shown.
enum class bsDoubleMode { SpinBox = 0, Wheel = 1, Both = 2 };

/// The side at which the label or the wheel stands.
enum class bsDoublePosition { Top = 0, Bottom = 1, Left = 2, Right = 3 };

/// How the wheel lies.
enum class bsDoubleOrientation { Horizontal = 0, Vertical = 1 };
