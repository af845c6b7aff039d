#pragma once

#include <QPalette>

/// A desktop's dark colours, for the style Fusion.
QPalette darkPalette();
