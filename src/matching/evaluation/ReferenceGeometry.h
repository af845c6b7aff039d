#pragma once

#include "MatchingPoint.h"

/// How well reference points hold a transformation. Points of which one of these is true leave a turn, a
/// shift or the order of the points to chance.
struct ReferenceGeometry {
    bool nearlyOnLine = false;           ///< all within 2 % of their extent from one line
    bool nearlyCoinciding = false;       ///< two of them are less than 1 mm apart
    bool firstThreeNearlyOnLine = false; ///< the height of their triangle is below 2 % of its longest side

    /// At least three points. All false when a coordinate is not finite.
    [[nodiscard]] static ReferenceGeometry of(const MatchingPoints &references);
};
