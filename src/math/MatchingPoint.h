#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

/// A point x, y, z in millimetres.
using MatchingPoint = std::array<double, 3>;

/// Points one after the other, without gaps: `points.front().data()` is the point array of trafo3d.h.
using MatchingPoints = std::vector<MatchingPoint>;

/// False when any coordinate is infinite or not a number.
[[nodiscard]] inline bool allFinite(const MatchingPoints &points)
{
    return std::all_of(points.begin(), points.end(), [](const MatchingPoint &point) {
        return std::isfinite(point[0]) && std::isfinite(point[1]) && std::isfinite(point[2]);
    });
}
