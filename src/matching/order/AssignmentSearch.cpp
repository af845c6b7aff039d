#include "AssignmentSearch.h"

#include "TwinOrders.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace
{

constexpr int firstExchangeable = 3;
constexpr std::size_t largestLoopCount = 6;
constexpr double firstLimitOfSpread = 1e-4;
constexpr int largestExchangeCount = 5040;
constexpr double rivalFactor = 1.02;
constexpr double rivalMm = 0.05;

double largestCoordinate(const MatchingPoints &points)
{
    double largest = 0.0;
    for (const MatchingPoint &point : points)
        largest = std::max({largest, std::fabs(point[0]), std::fabs(point[1]), std::fabs(point[2])});
    return largest;
}

AssignmentSearch::Result resultOf(const KeptOrder &kept)
{
    if (kept.isEmpty())
        return {};
    return {AssignmentSearch::Outcome::Found, kept.order(), kept.best()};
}

/// Offers to the keeper every order that comes, and those that only exchange equal points with it.
class BestOrder : public AssignmentTree::Visitor
{
public:
    BestOrder(OrderFit &fit, const TwinPoints &references, const TwinPoints &measured)
        : m_fit(fit)
        , m_exchanges(references.any())
        , m_twins(m_exchanges || measured.any())
        , m_singles(fit.references(), static_cast<int>(fit.references().size()))
        , m_orders(references, measured)
        , m_sameNumbers(m_singles, measured)
        , m_noiseMm(1e-13 * (largestCoordinate(fit.references()) + largestCoordinate(fit.measured())))
    {
    }

    void setLimitMm(double limit) { m_limitMm = limit; }
    [[nodiscard]] const KeptOrder &kept() const { return m_kept; }

    [[nodiscard]] double limitMm() const override
    {
        return m_kept.isEmpty() ? m_limitMm : std::min(m_limitMm, static_cast<double>(m_kept.best()));
    }

    bool visit(const PointOrder &order) override
    {
        const OrderFit::Result fit = m_fit.fit(order);
        if (!fit.isValid())
            return true;
        if (!m_twins)
            m_kept.offer(order, fit.rmsMm);
        else if (m_exchanges && roundingDecides(fit.rmsMm))
            m_orders.forEachExchange(order, largestExchangeCount,
                                     [this](const PointOrder &other) { offer(other); });
        else
            m_kept.offer(m_orders.first(order), m_orders.last(order), fit.rmsMm);
        return true;
    }

private:
    /// Equal measured points give the same numbers in any order.
    void offer(const PointOrder &order)
    {
        const OrderFit::Result fit = m_fit.fit(order);
        if (fit.isValid())
            m_kept.offer(m_sameNumbers.first(order), m_sameNumbers.last(order), fit.rmsMm);
    }

    /// True if residuals that differ by rounding may differ in single precision, or in being below it.
    [[nodiscard]] bool roundingDecides(double rmsMm) const
    {
        const double noise = 1e-12 * rmsMm + m_noiseMm;
        const double low = rmsMm - noise, high = rmsMm + noise;
        const auto rounded = static_cast<float>(rmsMm);
        const auto single = static_cast<double>(rounded);
        return static_cast<float>(low) < rounded || static_cast<float>(high) > rounded ||
               (low <= single && single <= high);
    }

    OrderFit &m_fit;
    bool m_exchanges;
    bool m_twins;
    TwinPoints m_singles;
    TwinOrders m_orders;
    TwinOrders m_sameNumbers;
    double m_noiseMm;
    double m_limitMm = std::numeric_limits<double>::infinity();
    KeptOrder m_kept;
};

/// Stops at the first order but one that fits within the limit.
class RivalOrder : public AssignmentTree::Visitor
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

} // namespace

AssignmentSearch::AssignmentSearch(const MatchingPoints &references, const MatchingPoints &measured)
    : m_fit(references, measured)
    , m_referenceTwins(references, firstExchangeable)
    , m_measuredTwins(measured)
{
}

/// No order can be valid: a residual that is not finite never improves, and without a triple there is no
/// start.
bool AssignmentSearch::isHopeless() const
{
    return !allFinite(m_fit.references()) || !allFinite(m_fit.measured()) || !m_fit.canStart();
}

AssignmentSearch::Result AssignmentSearch::run(const GoOn &goOn)
{
    return m_fit.references().size() <= largestLoopCount ? runLoop() : runTree(goOn);
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

/// Walks with a narrow limit first and doubles it until an order within it is valid: all that fit as well
/// have then been visited, too.
AssignmentSearch::Result AssignmentSearch::runTree(const GoOn &goOn)
{
    if (isHopeless())
        return {};
    AssignmentTree tree(m_fit, m_referenceTwins, m_measuredTwins);
    BestOrder best(m_fit, m_referenceTwins, m_measuredTwins);
    const double largest = 2.0 * tree.largestRmsMm();
    double limit = std::max(2.0 * tree.leastRmsMm(), firstLimitOfSpread * largest);
    for (;;) {
        best.setLimitMm(limit);
        if (!tree.walk(best, goOn))
            return {Outcome::Cancelled, {}, -1.0F};
        const double reached = best.kept().isEmpty() ? 2.0 * limit : static_cast<double>(best.kept().best());
        if (reached <= limit || limit > largest)
            return resultOf(best.kept());
        limit = reached;
    }
}

AssignmentSearch::Rival AssignmentSearch::findRival(const Result &found, const GoOn &goOn)
{
    if (m_referenceTwins.any() || m_measuredTwins.any())
        return Rival::Exists;
    const auto best = static_cast<double>(found.bestMm);
    AssignmentTree tree(m_fit, m_referenceTwins, m_measuredTwins);
    RivalOrder rival(m_fit, found.order, std::max(rivalFactor * best, best + rivalMm));
    if (tree.walk(rival, goOn))
        return Rival::None;
    return rival.exists() ? Rival::Exists : Rival::Cancelled;
}
