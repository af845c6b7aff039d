#pragma once

#include "ClosestPair.h"
#include "MatchingPoint.h"

#include <optional>

/// How well reference points hold a transformation. Points of which one of these holds leave a turn, a
/// shift or the order of the points to chance.
struct ReferenceGeometry {
    bool nearlyOnLine = false; ///< all within 2 % of their extent from one line; three points or more
    std::optional<ClosestPair> coinciding; ///< the closest two, if they are less than 1 mm apart
    /// The height of the triangle of the first three is below 2 % of its longest side.
    bool firstThreeNearlyOnLine = false;

    /// Nothing of this when a coordinate is not finite.
    [[nodiscard]] static ReferenceGeometry of(const MatchingPoints &references);
};
