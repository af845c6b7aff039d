#include "ReferenceGeometry.h"

#include "ClosestPair.h"
#include "PointArithmetic.h"

#include <algorithm>

namespace
{

constexpr std::size_t fewestOfALine = 3;
constexpr double smallestDistanceMm = 1.0;
constexpr double smallestWidthOfLength = 0.02;

MatchingPoint farthestFrom(const MatchingPoint &start, const MatchingPoints &points)
{
    return *std::max_element(points.begin(), points.end(),
                             [&start](const MatchingPoint &left, const MatchingPoint &right) {
                                 return distance(left, start) < distance(right, start);
                             });
}

/// True if the points stay close to the line through two that lie far apart: within 2 % of their distance.
bool onLine(const MatchingPoints &points)
{
    const MatchingPoint end = farthestFrom(points.front(), points);
    const MatchingPoint otherEnd = farthestFrom(end, points);
    const MatchingPoint along = difference(otherEnd, end);
    const double length = lengthOf(along);
    return std::all_of(points.begin(), points.end(), [&](const MatchingPoint &point) {
        return lengthOf(crossProduct(along, difference(point, end))) <=
               smallestWidthOfLength * length * length;
    });
}

} // namespace

ReferenceGeometry ReferenceGeometry::of(const MatchingPoints &references)
{
    ReferenceGeometry geometry;
    if (!allFinite(references))
        return geometry;
    geometry.coinciding = ClosestPair::of(references, smallestDistanceMm);
    if (references.size() < fewestOfALine)
        return geometry;
    geometry.nearlyOnLine = onLine(references);
    geometry.firstThreeNearlyOnLine = onLine({references[0], references[1], references[2]});
    return geometry;
}
