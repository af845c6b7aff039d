#include "ClosestPair.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace
{

double sideOf(const MatchingPoints &points, std::size_t axis)
{
    const auto ends =
        std::minmax_element(points.begin(), points.end(),
                            [axis](const auto &left, const auto &right) { return left[axis] < right[axis]; });
    return (*ends.second)[axis] - (*ends.first)[axis];
}

std::size_t longestSide(const MatchingPoints &points)
{
    const double x = sideOf(points, 0), y = sideOf(points, 1), z = sideOf(points, 2);
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
            const MatchingPoint &q = points[*right];
            const double distance = std::hypot(p[0] - q[0], p[1] - q[1], p[2] - q[2]);
            if (distance >= belowMm)
                continue;
            closest = ClosestPair{static_cast<int>(std::min(*left, *right)),
                                  static_cast<int>(std::max(*left, *right)), distance};
            belowMm = distance;
        }
    }
    return closest;
}
