#include "AssignmentSearch.h"

#include "AssignmentTree.h"
#include "BestOrder.h"
#include "KeptOrder.h"
#include "PointArithmetic.h"
#include "RotationSearch.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace
{

constexpr int firstExchangeable = 3;
constexpr std::size_t largestLoopCount = 6;

/// Up to here, the tree has few orders to go through in the worst case.
constexpr std::size_t largestTreeCount = 8;

/// Of the tree before the rotations take over, in times that it asks whether to go on: some 2 ms.
constexpr std::size_t treeQuestions = 3;
constexpr std::size_t pointsPerTreeQuestion = 6;

/// Up to here, the tree and the rotations fit into the memory at the same time.
constexpr std::size_t mostPointsOfBoth = 500;

/// Beyond these, the squares of what a unit turn does to measured points overflow, or those of the distances
/// that are left of any measured points below that.
constexpr double largestMeasuredSideMm = 4e156;
constexpr double largestReferenceSideMm = 1e158;

constexpr double firstLimitOfSpread = 1e-4;
constexpr double limitGrowth = 1.1;
constexpr double rivalFactor = 1.02;
constexpr double rivalMm = 0.05;

const AssignmentSearch::Result cancelled = {AssignmentSearch::Outcome::Cancelled, {}, -1.0F};

AssignmentSearch::Result resultOf(const KeptOrder &kept)
{
    if (kept.isEmpty())
        return {};
    return {AssignmentSearch::Outcome::Found, kept.order(), kept.best()};
}

/// The longest side of the box around the points.
double longestSide(const MatchingPoints &points)
{
    return std::max(
        {rangeAlong(points, 0).extent(), rangeAlong(points, 1).extent(), rangeAlong(points, 2).extent()});
}

/// Lets the tree take a fixed number of steps.
class TreeSteps
{
public:
    TreeSteps(const OrderVisitor::GoOn &goOn, std::size_t points)
        : m_goOn(goOn)
        , m_endless(points <= largestTreeCount)
        , m_left(treeQuestions + points / pointsPerTreeQuestion)
    {
    }

    [[nodiscard]] bool areUsedUp() const { return !m_endless && m_left == 0; }

    [[nodiscard]] OrderVisitor::GoOn goOn()
    {
        return [this]() {
            if (areUsedUp())
                return false;
            --m_left;
            return !m_goOn || m_goOn();
        };
    }

private:
    const OrderVisitor::GoOn &m_goOn;
    bool m_endless;
    std::size_t m_left;
};

} // namespace

/// Stops at the first order but one that fits within the limit.
class RivalOrder : public OrderVisitor
{
public:
    RivalOrder(OrderFit &fit, const PointOrder &known, double limitMm)
        : m_fit(fit)
        , m_known(known)
        , m_limitMm(limitMm)
    {
    }

    [[nodiscard]] bool exists() const { return m_exists; }
    [[nodiscard]] double limitMm() const override { return m_limitMm; }

    bool visit(const PointOrder &order) override
    {
        if (order == m_known)
            return true;
        const OrderFit::Result fit = m_fit.fit(order);
        m_exists = fit.isValid() && fit.rmsMm <= m_limitMm;
        return !m_exists;
    }

private:
    OrderFit &m_fit;
    const PointOrder &m_known;
    double m_limitMm;
    bool m_exists = false;
};

AssignmentSearch::AssignmentSearch(const MatchingPoints &references, const MatchingPoints &measured)
    : m_fit(references, measured)
    , m_referenceTwins(references, firstExchangeable)
    , m_measuredTwins(measured)
{
}

AssignmentSearch::~AssignmentSearch() = default;

/// No order can be valid: a residual that is not finite never improves, and without a triple there is no
/// start.
std::optional<AssignmentSearch::Result> AssignmentSearch::answerAtOnce(const GoOn &goOn) const
{
    const MatchingPoints &references = m_fit.references(), &measured = m_fit.measured();
    if (!allFinite(references) || !allFinite(measured) || !m_fit.referencesAllowStart())
        return Result();
    if (references.size() > mostPoints)
        return Result{Outcome::TooManyPoints, {}, -1.0F};
    if (longestSide(measured) > largestMeasuredSideMm || longestSide(references) > largestReferenceSideMm)
        return Result();
    switch (m_fit.anyStart(goOn)) {
    case OrderFit::Start::Possible:
        return std::nullopt;
    case OrderFit::Start::Impossible:
        return Result();
    case OrderFit::Start::Cancelled:
        break;
    }
    return cancelled;
}

AssignmentSearch::Result AssignmentSearch::run(const GoOn &goOn)
{
    if (m_fit.references().size() <= largestLoopCount)
        return runLoop();
    if (const std::optional<Result> answer = answerAtOnce(goOn))
        return *answer;
    BestOrder best(m_fit, m_referenceTwins, m_measuredTwins);
    TreeSteps steps(goOn, m_fit.references().size());
    if (walkTree(best, steps.goOn()))
        return resultOf(best.kept());
    const bool gaveUp = steps.areUsedUp() || m_treeIsFull;
    return gaveUp && walkRotations(best, goOn) ? resultOf(best.kept()) : cancelled;
}

AssignmentSearch::Result AssignmentSearch::runLoop()
{
    PointOrder order(m_fit.references().size());
    std::iota(order.begin(), order.end(), 0);
    KeptOrder kept;
    do {
        const OrderFit::Result fit = m_fit.fit(order);
        if (fit.isValid())
            kept.offer(order, fit.rmsMm);
    } while (std::next_permutation(order.begin(), order.end()));
    return resultOf(kept);
}

AssignmentSearch::Result AssignmentSearch::runTree(const GoOn &goOn)
{
    if (const std::optional<Result> answer = answerAtOnce(goOn))
        return *answer;
    BestOrder best(m_fit, m_referenceTwins, m_measuredTwins);
    return walkTree(best, goOn) ? resultOf(best.kept()) : cancelled;
}

AssignmentSearch::Result AssignmentSearch::runRotations(const GoOn &goOn)
{
    if (const std::optional<Result> answer = answerAtOnce(goOn))
        return *answer;
    BestOrder best(m_fit, m_referenceTwins, m_measuredTwins);
    return walkRotations(best, goOn) ? resultOf(best.kept()) : cancelled;
}

/// Walks with a narrow limit first and doubles it until an order within it is valid: all that fit as well
/// have then been visited, too.
bool AssignmentSearch::walkTree(BestOrder &best, const GoOn &goOn)
{
    AssignmentTree tree(m_fit, m_referenceTwins, m_measuredTwins);
    const double largest = 2.0 * tree.largestRmsMm();
    double limit = std::max(2.0 * tree.leastRmsMm(), firstLimitOfSpread * largest);
    for (;;) {
        best.setLimit(limit);
        if (!tree.walk(best, goOn)) {
            m_treeIsFull = tree.isFull();
            return false;
        }
        const double reached = best.kept().isEmpty() ? 2.0 * limit : static_cast<double>(best.kept().best());
        if (reached <= limit || limit > largest)
            return true;
        limit = reached;
    }
}

/// Begins with the orders that are probably the best. If none of them is valid, the limit grows from the
/// least of their residuals; a little only, as the number of orders grows fast with it.
bool AssignmentSearch::walkRotations(BestOrder &best, const GoOn &goOn)
{
    RotationSearch &search = rotations();
    best.setLimit(std::numeric_limits<double>::infinity());
    if (!search.visitLikely(best, goOn))
        return false;
    const double largest = 2.0 * search.largestRmsMm();
    double limit = std::max(search.leastLikelyRmsMm(), firstLimitOfSpread * largest);
    for (;;) {
        if (!best.kept().isEmpty())
            limit = static_cast<double>(best.kept().best());
        best.setLimit(limit);
        if (!search.walk(best, goOn))
            return false;
        const bool reached = !best.kept().isEmpty() && static_cast<double>(best.kept().best()) <= limit;
        if (reached || limit > largest)
            return true;
        limit *= limitGrowth;
    }
}

RotationSearch &AssignmentSearch::rotations()
{
    if (!m_rotations)
        m_rotations = std::make_unique<RotationSearch>(m_fit.references(), m_fit.measured(), m_referenceTwins,
                                                       m_measuredTwins);
    return *m_rotations;
}

AssignmentSearch::Rival AssignmentSearch::findRival(const Result &found, const GoOn &goOn)
{
    if (m_referenceTwins.any() || m_measuredTwins.any())
        return Rival::Exists;
    const auto best = static_cast<double>(found.bestMm);
    RivalOrder rival(m_fit, found.order, std::max(rivalFactor * best, best + rivalMm));
    bool gaveUp = false;
    bool complete = walkTree(rival, gaveUp, goOn);
    if (gaveUp && !rival.exists())
        complete = swapPairs(rival, found.order, goOn) && rotations().walk(rival, goOn);
    if (complete)
        return Rival::None;
    return rival.exists() ? Rival::Exists : Rival::Cancelled;
}

/// Where there are many points, the memory is the tree's first and then that of the rotations.
bool AssignmentSearch::walkTree(RivalOrder &rival, bool &gaveUp, const GoOn &goOn)
{
    const std::size_t count = m_fit.references().size();
    if (count > mostPointsOfBoth)
        m_rotations.reset();
    AssignmentTree tree(m_fit, m_referenceTwins, m_measuredTwins);
    TreeSteps steps(goOn, count);
    const bool complete = tree.walk(rival, steps.goOn());
    gaveUp = !complete && (steps.areUsedUp() || tree.isFull());
    return complete;
}

/// Where many orders fit, one that exchanges two partners mostly does. False when that is so, and when it was
/// ended.
bool AssignmentSearch::swapPairs(RivalOrder &rival, const PointOrder &found, const GoOn &goOn) const
{
    const RotationBound bound(m_fit.references(), m_fit.measured());
    const double limit = bound.sumWithin(rival.limitMm());
    PointOrder order = found;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (goOn && !goOn())
            return false;
        for (std::size_t j = i + 1; j < order.size(); ++j) {
            std::swap(order[i], order[j]);
            if (!bound.exceeds(bound.momentsOf(order), limit) && !rival.visit(order))
                return false;
            std::swap(order[i], order[j]);
        }
    }
    return true;
}
