#include "ClosestPair.h"

#include "PointArithmetic.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

namespace
{

/// More strips than this would not make them emptier, and their numbers stay exact.
constexpr double mostStrips = 1e6;

/// A point in strips that divide the list's box across its second longest side.
struct Place {
    double strip;
    double along; ///< the longest side
    std::size_t index;
};

using Places = std::vector<Place>;

/// The axes of the longest side and of the next one.
std::pair<std::size_t, std::size_t> longSides(const MatchingPoints &points)
{
    std::array<std::pair<double, std::size_t>, 3> sides;
    for (std::size_t axis = 0; axis < sides.size(); ++axis)
        sides[axis] = {-rangeAlong(points, axis).extent(), axis};
    std::sort(sides.begin(), sides.end());
    return {sides[0].second, sides[1].second};
}

/// Points that are less than `apartMm` apart are in one strip or in neighbours. Sorted.
Places placesOf(const MatchingPoints &points, double apartMm)
{
    const auto [along, across] = longSides(points);
    const CoordinateRange range = rangeAlong(points, across);
    const double width = std::max(2.0 * apartMm, range.extent() / mostStrips);
    Places places;
    places.reserve(points.size());
    for (const MatchingPoint &point : points) {
        const double strip = std::isfinite(width) ? std::floor((point[across] - range.low) / width) : 0.0;
        places.push_back({strip, point[along], places.size()});
    }
    std::sort(places.begin(), places.end(), [](const Place &left, const Place &right) {
        return std::tie(left.strip, left.along, left.index) < std::tie(right.strip, right.along, right.index);
    });
    return places;
}

/// What is closest so far.
class Closest
{
public:
    Closest(const MatchingPoints &points, double belowMm)
        : m_points(points)
        , m_belowMm(belowMm)
    {
    }

    [[nodiscard]] double belowMm() const { return m_belowMm; }
    [[nodiscard]] const std::optional<ClosestPair> &pair() const { return m_pair; }

    /// Compares a point with those from `begin` on that lie in `strip` and less far along.
    void compare(const Place &place, double strip, Places::const_iterator begin, Places::const_iterator end)
    {
        for (auto other = begin; other != end && other->strip == strip; ++other) {
            if (!(other->along - place.along < m_belowMm))
                return;
            const double apartMm = distance(m_points[place.index], m_points[other->index]);
            if (apartMm < m_belowMm)
                take(std::minmax(place.index, other->index), apartMm);
        }
    }

private:
    void take(const std::pair<std::size_t, std::size_t> &places, double apartMm)
    {
        m_pair = ClosestPair{static_cast<int>(places.first), static_cast<int>(places.second), apartMm};
        m_belowMm = apartMm;
    }

    const MatchingPoints &m_points;
    double m_belowMm;
    std::optional<ClosestPair> m_pair;
};

} // namespace

std::optional<ClosestPair> ClosestPair::of(const MatchingPoints &points, double belowMm)
{
    if (points.empty() || !(belowMm > 0.0))
        return std::nullopt;
    const Places places = placesOf(points, belowMm);
    Closest closest(points, belowMm);
    auto neighbour = places.begin(); // the first of the next strip that is not too far back
    for (auto place = places.begin(); place != places.end(); ++place) {
        closest.compare(*place, place->strip, place + 1, places.end());
        const double nextStrip = place->strip + 1.0;
        const double back = place->along - closest.belowMm();
        while (neighbour != places.end() &&
               (neighbour->strip < nextStrip || (neighbour->strip == nextStrip && neighbour->along <= back)))
            ++neighbour;
        closest.compare(*place, nextStrip, neighbour, places.end());
    }
    return closest.pair();
}
