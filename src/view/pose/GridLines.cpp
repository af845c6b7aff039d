#include "GridLines.h"

#include "bsMatrix.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace
{

constexpr double largestHalfSize = 1e7;
constexpr int largestCount = 20001;

/// Lines are one pixel wide, so those just outside of the picture count as inside.
constexpr double pictureMargin = 1.005;

struct PlanePoint {
    double x;
    double y;
};

/// The half plane a * x + b * y + c >= 0.
struct HalfPlane {
    double a;
    double b;
    double c;

    [[nodiscard]] double distance(const PlanePoint &p) const { return a * p.x + b * p.y + c; }
};

using Polygon = std::vector<PlanePoint>;

/// margin * w + sign * (element of the row) >= 0, in the grid's plane.
HalfPlane clipSide(const bsMatrix &clipFromGrid, int row, double sign)
{
    const auto element = [&](int column) {
        return pictureMargin * clipFromGrid.at(3, column) + sign * clipFromGrid.at(row, column);
    };
    return {element(0), element(1), element(3)};
}

/// One step of the polygon clipping of Sutherland and Hodgman, Comm. ACM 17 (1974) 32.
Polygon clipped(const Polygon &polygon, const HalfPlane &side)
{
    Polygon result;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const PlanePoint &from = polygon[i];
        const PlanePoint &to = polygon[(i + 1) % polygon.size()];
        const double fromDistance = side.distance(from);
        const double toDistance = side.distance(to);
        if (fromDistance >= 0.0)
            result.push_back(from);
        if ((fromDistance >= 0.0) != (toDistance >= 0.0)) {
            const double part = fromDistance / (fromDistance - toDistance);
            result.push_back({from.x + part * (to.x - from.x), from.y + part * (to.y - from.y)});
        }
    }
    return result;
}

Polygon visiblePart(double halfSize, const bsMatrix &clipFromGrid)
{
    Polygon polygon = {
        {-halfSize, -halfSize}, {halfSize, -halfSize}, {halfSize, halfSize}, {-halfSize, halfSize}};
    for (int row = 0; row < 3; ++row) {
        for (const double sign : {1.0, -1.0})
            polygon = clipped(polygon, clipSide(clipFromGrid, row, sign));
    }
    return polygon;
}

GridLines linesBetween(double lowest, double highest, double halfSize, double spacing)
{
    const double last = std::floor(2.0 * halfSize / spacing);
    const double begin = std::clamp(std::floor((lowest + halfSize) / spacing) - 1.0, 0.0, last);
    const double end = std::clamp(std::ceil((highest + halfSize) / spacing) + 1.0, begin, last);
    const double count = std::min(end - begin + 1.0, static_cast<double>(largestCount));
    return {-halfSize + begin * spacing, spacing, static_cast<int>(count)};
}

} // namespace

GridWindow visibleGrid(double halfSize, double spacing, const bsMatrix &clipFromGrid)
{
    if (!std::isfinite(halfSize) || !std::isfinite(spacing) || !(spacing > 0.0) || !clipFromGrid.isFinite())
        return {};
    const double whole = std::trunc(std::min(halfSize, largestHalfSize));
    const double size = whole / spacing * spacing;
    const Polygon polygon = visiblePart(size, clipFromGrid);
    if (polygon.empty() || size < 0.0)
        return {};
    const auto [left, right] = std::minmax_element(
        polygon.begin(), polygon.end(), [](const PlanePoint &p, const PlanePoint &q) { return p.x < q.x; });
    const auto [bottom, top] = std::minmax_element(
        polygon.begin(), polygon.end(), [](const PlanePoint &p, const PlanePoint &q) { return p.y < q.y; });
    return {size, linesBetween(left->x, right->x, size, spacing),
            linesBetween(bottom->y, top->y, size, spacing)};
}
