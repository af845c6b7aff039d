#include "FitSketch.h"

#include "PointArithmetic.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double margin = 0.15; ///< of the shorter side; room for enlarged errors and numbers
constexpr double longestError = 0.125;
constexpr double largestEnlargement = 1e6;

struct Axes {
    std::size_t right;
    std::size_t up;
};

Axes axesOf(FitSketch::Along along)
{
    switch (along) {
    case FitSketch::Along::X:
        return {1, 2};
    case FitSketch::Along::Y:
        return {0, 2};
    case FitSketch::Along::Z:
        break;
    }
    return {0, 1};
}

CoordinateRange rangeOfBoth(const MatchingPoints &references, const MatchingPoints &mapped, std::size_t axis)
{
    const CoordinateRange one = rangeAlong(references, axis), other = rangeAlong(mapped, axis);
    return {std::min(one.low, other.low), std::max(one.high, other.high)};
}

/// From millimetres to the picture: the middle of all points in the middle, the same scale both ways.
class Projection
{
public:
    Projection(const MatchingPoints &references, const MatchingPoints &mapped, Axes axes, double width,
               double height)
        : m_axes(axes)
        , m_width(width)
        , m_height(height)
        , m_right(rangeOfBoth(references, mapped, axes.right))
        , m_up(rangeOfBoth(references, mapped, axes.up))
    {
        const double border = 2.0 * margin * std::min(width, height);
        const double scale = std::min((width - border) / m_right.extent(), (height - border) / m_up.extent());
        m_scale = std::isfinite(scale) ? scale : 0.0; // all in one place
    }

    FitSketch::Place place(const MatchingPoint &point) const
    {
        return {0.5 * m_width + m_scale * (point[m_axes.right] - m_right.middle()),
                0.5 * m_height - m_scale * (point[m_axes.up] - m_up.middle())};
    }

private:
    Axes m_axes;
    double m_width;
    double m_height;
    CoordinateRange m_right;
    CoordinateRange m_up;
    double m_scale = 0.0;
};

double length(const FitSketch::Pair &pair)
{
    return std::hypot(pair.mapped.x - pair.reference.x, pair.mapped.y - pair.reference.y);
}

/// The largest of 1, 2, 5, 10, ... that is not above `limit`; 1 at the least.
double roundEnlargement(double limit)
{
    double round = 1.0;
    for (double decade = 1.0; decade <= largestEnlargement; decade *= 10.0) {
        for (const double step : {1.0, 2.0, 5.0}) {
            if (step * decade <= std::min(limit, largestEnlargement))
                round = step * decade;
        }
    }
    return round;
}

void enlarge(FitSketch &sketch, double longest)
{
    double largest = 0.0;
    for (const FitSketch::Pair &pair : sketch.pairs)
        largest = std::max(largest, length(pair));
    if (largest == 0.0)
        return;
    sketch.enlargement = roundEnlargement(longest / largest);
    for (FitSketch::Pair &pair : sketch.pairs) {
        pair.mapped.x = pair.reference.x + sketch.enlargement * (pair.mapped.x - pair.reference.x);
        pair.mapped.y = pair.reference.y + sketch.enlargement * (pair.mapped.y - pair.reference.y);
    }
}

} // namespace

FitSketch::Along FitSketch::widestView(const MatchingPoints &references)
{
    const double x = rangeAlong(references, 0).extent();
    const double y = rangeAlong(references, 1).extent();
    const double z = rangeAlong(references, 2).extent();
    if (x < y && x < z)
        return Along::X;
    return y < z ? Along::Y : Along::Z;
}

FitSketch FitSketch::of(const MatchingPoints &references, const MatchingPoints &mapped, Along along,
                        double width, double height)
{
    const Projection projection(references, mapped, axesOf(along), width, height);
    FitSketch sketch;
    for (std::size_t i = 0; i < references.size(); ++i)
        sketch.pairs.push_back({projection.place(references[i]), projection.place(mapped[i])});
    enlarge(sketch, longestError * std::min(width, height));
    return sketch;
}
