#pragma once

#include "MatchingPoint.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <limits>

/// Words about points, in millimetres and in the coordinate system of what is given; nothing is rounded or
/// caught: infinities and NaN pass through.
///
/// All are static: the fit and the search for the order are compiled without fused multiplication, and so is
/// the copy of these that they use.

[[nodiscard]] static inline MatchingPoint difference(const MatchingPoint &to, const MatchingPoint &from)
{
    return {to[0] - from[0], to[1] - from[1], to[2] - from[2]};
}

[[nodiscard]] static inline double dotProduct(const MatchingPoint &a, const MatchingPoint &b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

[[nodiscard]] static inline MatchingPoint crossProduct(const MatchingPoint &a, const MatchingPoint &b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

[[nodiscard]] static inline double squaredLength(const MatchingPoint &p)
{
    return dotProduct(p, p);
}

/// Without the overflow that the square would have beyond 1e154.
[[nodiscard]] static inline double lengthOf(const MatchingPoint &p)
{
    return std::hypot(p[0], p[1], p[2]);
}

[[nodiscard]] static inline double distance(const MatchingPoint &a, const MatchingPoint &b)
{
    return lengthOf(difference(a, b));
}

/// The largest magnitude of all coordinates; 0 without points.
[[nodiscard]] static inline double largestCoordinate(const MatchingPoints &points)
{
    double largest = 0.0;
    for (const MatchingPoint &point : points)
        largest = std::max({largest, std::fabs(point[0]), std::fabs(point[1]), std::fabs(point[2])});
    return largest;
}

/// The mean of the points; the origin without points.
[[nodiscard]] static inline MatchingPoint centreOf(const MatchingPoints &points)
{
    const auto count = static_cast<double>(points.size());
    MatchingPoint centre{};
    for (const MatchingPoint &point : points) {
        for (std::size_t axis = 0; axis < centre.size(); ++axis)
            centre[axis] += point[axis] / count;
    }
    return centre;
}

/// From the lowest to the highest of some coordinates.
struct CoordinateRange {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();

    [[nodiscard]] double extent() const { return high - low; }
    [[nodiscard]] double middle() const { return 0.5 * low + 0.5 * high; }
};

/// Of one axis, 0 for x to 2 for z. Without points low is above high.
[[nodiscard]] static inline CoordinateRange rangeAlong(const MatchingPoints &points, std::size_t axis)
{
    CoordinateRange range;
    for (const MatchingPoint &point : points) {
        range.low = std::min(range.low, point[axis]);
        range.high = std::max(range.high, point[axis]);
    }
    return range;
}

/// The element of a list at a place that is counted in int, as the places of points are.
template <class List>
[[nodiscard]] static inline auto &at(List &list, int place)
{
    const auto index = static_cast<std::size_t>(place);
    assert(index < list.size());
    return list[index];
}
