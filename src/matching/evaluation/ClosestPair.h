#pragma once

#include "MatchingPoint.h"

#include <optional>

/// Two points of a list that are closer to each other than a distance.
struct ClosestPair {
    int first = 0;
    int second = 0; ///< above the first
    double distanceMm = 0.0;

    /// The closest two, nothing when all are at least `belowMm` apart. All coordinates finite.
    ///
    /// Cost: sorting, and comparing the points that are less than `belowMm` apart along the longest side of
    /// the list's box and less than four times that along the second longest.
    [[nodiscard]] static std::optional<ClosestPair> of(const MatchingPoints &points, double belowMm);
};
