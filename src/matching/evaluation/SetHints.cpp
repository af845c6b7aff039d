#include "SetHints.h"

#include "AssignmentTree.h"
#include "ClosestPair.h"
#include "PointArithmetic.h"
#include "RotationBound.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double largestFactorError = 0.05;
constexpr double samePlaceMm = 3.0;
constexpr std::size_t fewestToMirror = 4;
constexpr std::size_t mostToMirror = 100;
constexpr double mirrorLimitOfExtent = 0.02;

/// Of the search for a mirror image, in times that the tree asks whether to go on: some 20 ms at most.
constexpr int mirrorQuestions = 30;

/// Root mean square of the distances from the centre.
double extentOf(const MatchingPoints &points)
{
    const auto count = static_cast<double>(points.size());
    const MatchingPoint centre = centreOf(points);
    double sum = 0.0;
    for (const MatchingPoint &point : points)
        sum += std::pow(distance(point, centre), 2) / count;
    return std::sqrt(sum);
}

SetHints::Factor factorOf(double ratio)
{
    using Factor = SetHints::Factor;
    for (const Factor factor : {Factor::Ten, Factor::Inch, Factor::Hundred, Factor::Thousand}) {
        if (std::fabs(ratio / SetHints::valueOf(factor) - 1.0) <= largestFactorError)
            return factor;
    }
    return Factor::None;
}

void compareSizes(SetHints &hints, const MatchingPoints &references, const MatchingPoints &measured)
{
    if (references.size() != measured.size() || references.size() < 2)
        return;
    const double reference = extentOf(references), other = extentOf(measured);
    hints.larger = reference >= other ? SetHints::Larger::References : SetHints::Larger::Measured;
    hints.factor = factorOf(std::max(reference, other) / std::min(reference, other));
}

MatchingPoints withoutRepetitions(MatchingPoints points)
{
    std::sort(points.begin(), points.end());
    points.erase(std::unique(points.begin(), points.end()), points.end());
    return points;
}

void findSamePlace(SetHints &hints, const MatchingPoints &references, const MatchingPoints &measured)
{
    const std::optional<ClosestPair> pair = ClosestPair::of(measured, samePlaceMm);
    if (!pair || ClosestPair::of(withoutRepetitions(references), 2.0 * pair->distanceMm))
        return;
    hints.sameMeasured = pair->first;
    hints.sameMeasuredToo = pair->second;
}

/// Ends a walk at the first order that stays within the limit.
class AnyOrder : public OrderVisitor
{
public:
    AnyOrder(const MatchingPoints &references, const MatchingPoints &measured, double limitMm)
        : m_bound(references, measured)
        , m_limitMm(limitMm)
    {
    }

    [[nodiscard]] bool exists() const { return m_exists; }
    [[nodiscard]] double limitMm() const override { return m_limitMm; }

    bool visit(const PointOrder &order) override
    {
        m_exists = !m_bound.exceeds(m_bound.momentsOf(order), m_bound.sumWithin(m_limitMm));
        return !m_exists;
    }

private:
    RotationBound m_bound;
    double m_limitMm;
    bool m_exists = false;
};

/// Whether some order brings the lists together. Whatever fits is found within a few steps.
bool fits(const MatchingPoints &references, const MatchingPoints &measured, double limitMm)
{
    const OrderFit fit(references, measured);
    const TwinPoints referenceTwins(references), measuredTwins(measured);
    AssignmentTree tree(fit, referenceTwins, measuredTwins);
    AnyOrder order(references, measured, limitMm);
    int questions = mirrorQuestions;
    const bool ended = tree.walk(order, [&questions]() { return questions-- > 0; });
    return !ended && order.exists();
}

bool isMirrored(const MatchingPoints &references, const MatchingPoints &measured)
{
    const std::size_t count = references.size();
    if (count != measured.size() || count < fewestToMirror || count > mostToMirror)
        return false;
    const double limitMm = mirrorLimitOfExtent * extentOf(references);
    if (fits(references, measured, limitMm))
        return false;
    MatchingPoints mirrored = measured;
    for (MatchingPoint &point : mirrored)
        point[0] = -point[0];
    return fits(references, mirrored, limitMm);
}

} // namespace

double SetHints::valueOf(Factor factor)
{
    switch (factor) {
    case Factor::None:
        break;
    case Factor::Ten:
        return 10.0;
    case Factor::Inch:
        return 25.4;
    case Factor::Hundred:
        return 100.0;
    case Factor::Thousand:
        return 1000.0;
    }
    return 1.0;
}

SetHints SetHints::of(const MatchingPoints &references, const MatchingPoints &measured)
{
    SetHints hints;
    if (!allFinite(references) || !allFinite(measured))
        return hints;
    hints.zeroReferences =
        static_cast<int>(std::count(references.begin(), references.end(), MatchingPoint{0.0, 0.0, 0.0}));
    compareSizes(hints, references, measured);
    if (hints.factor == Factor::None)
        findSamePlace(hints, references, measured);
    if (!hints.any())
        hints.mirrored = isMirrored(references, measured);
    return hints;
}
