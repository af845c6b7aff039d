#pragma once

#include "bsVector.h"

#include <array>

class abcRoom;

/// The projection of the room view; the size is in pixels and never 0.
struct ViewProjection {
    double fieldOfViewDegrees = 45.0; ///< vertical
    double nearPlane = 1.0;           ///< millimetres
    double farPlane = 100000.0;       ///< millimetres
    int width = 1;
    int height = 1;
};

/// A further point that the view distance regards while all three flags are set.
struct ViewExtraPoint {
    bsVector point;
    std::array<bool, 3> enabled = {false, false, false};
};

/// The distance in millimetres from which the room's symbols are all in the picture, at least 900.
///
/// It is 900 without a loaded room, and when the room's numbers are not finite.
double bestViewDistance(const abcRoom &room, const ViewProjection &projection, const ViewExtraPoint &extra);
