#include "ClosestPair.h"

#include "PointArithmetic.h"

#include <algorithm>
#include <numeric>

namespace
{

std::size_t longestSide(const MatchingPoints &points)
{
    const double x = rangeAlong(points, 0).extent();
    const double y = rangeAlong(points, 1).extent();
    const double z = rangeAlong(points, 2).extent();
    if (x >= y && x >= z)
        return 0;
    return y >= z ? 1 : 2;
}

std::vector<std::size_t> sortedAlong(const MatchingPoints &points, std::size_t axis)
{
    std::vector<std::size_t> places(points.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::sort(places.begin(), places.end(), [&points, axis](std::size_t left, std::size_t right) {
        return points[left][axis] < points[right][axis];
    });
    return places;
}

} // namespace

std::optional<ClosestPair> ClosestPair::of(const MatchingPoints &points, double belowMm)
{
    if (points.empty())
        return std::nullopt;
    const std::size_t axis = longestSide(points);
    const std::vector<std::size_t> places = sortedAlong(points, axis);
    std::optional<ClosestPair> closest;
    for (auto left = places.begin(); left != places.end(); ++left) {
        const MatchingPoint &p = points[*left];
        for (auto right = left + 1; right != places.end() && points[*right][axis] - p[axis] < belowMm;
             ++right) {
            const double apartMm = distance(p, points[*right]);
            if (apartMm >= belowMm)
                continue;
            closest = ClosestPair{static_cast<int>(std::min(*left, *right)),
                                  static_cast<int>(std::max(*left, *right)), apartMm};
            belowMm = apartMm;
        }
    }
    return closest;
}
