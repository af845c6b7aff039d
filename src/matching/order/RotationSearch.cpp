#include "RotationSearch.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr std::size_t startCount = 256;
constexpr std::size_t followedCount = 12;
constexpr int longestFollowing = 12;
constexpr std::size_t knownNumbers = 1U << 17U;
constexpr std::size_t mostKnown = 1U << 12U;

/// Room for rounding, of all that is added up.
constexpr double roundingOfTotal = 1e-12;

constexpr double forbidden = std::numeric_limits<double>::infinity();

/// Nothing is assigned in as many cells within one another.
constexpr int mostSkipped = 2;

/// Above so many pairs or steps a cell is rather cut. Once its size adds little to what may be spent in it,
/// cutting leaves nearly the same orders, and going through them is worth more with every cut.
constexpr std::size_t fewestPairs = 40;
constexpr std::size_t pairsPerPoint = 6;
constexpr long fewestSteps = 100;
constexpr long stepsPerPoint = 12;
constexpr double smallShare = 0.8;
constexpr long stepsGrowth = 16;
constexpr long mostSteps = 1L << 40U;

constexpr std::size_t workBetweenQuestions = 20000;

} // namespace

RotationSearch::RotationSearch(const MatchingPoints &references, const MatchingPoints &measured,
                               const TwinPoints &referenceTwins, const TwinPoints &measuredTwins)
    : m_bound(references, measured)
    , m_costsUnder(m_bound.centredReferences(), m_bound.centredMeasured())
    , m_assignment(m_costsUnder.count())
    , m_orders(referenceTwins, measuredTwins)
    , m_pairs(m_costsUnder.count())
    , m_costs(m_pairs.size())
    , m_knownCount(std::min(mostKnown, knownNumbers / references.size()))
    , m_known(m_knownCount * references.size())
{
    constexpr std::size_t rowsOfPath = 16;
    m_assignment.setGoOn([this, work = rowsOfPath * references.size()]() { return mayGoOn(work); });
}

void RotationSearch::begin(OrderVisitor &visitor, const OrderVisitor::GoOn &goOn)
{
    m_visitor = &visitor;
    m_goOn = &goOn;
    m_ended = false;
    std::fill(m_known.begin(), m_known.end(), short(-1));
    makeStarts();
}

double RotationSearch::largestRmsMm() const
{
    return std::sqrt(m_costsUnder.total() / m_costsUnder.count()) * m_bound.unitMm();
}

bool RotationSearch::mayGoOn(std::size_t work)
{
    m_steps += work;
    if (m_steps < workBetweenQuestions)
        return !m_ended;
    m_steps = 0;
    m_ended = m_ended || (*m_goOn && !(*m_goOn)());
    return !m_ended;
}

/// Cells of about the same size.
void RotationSearch::makeStarts()
{
    if (!m_starts.empty())
        return;
    for (const RotationCell &cell : RotationCell::all())
        m_starts.push_back({cell, m_assignment.columnPrices(), 0.0});
    while (m_starts.size() < startCount) {
        std::vector<Start> smaller;
        for (const Start &start : m_starts) {
            const RotationCell::Matrix rotation = RotationCell::matrixOf(start.cell.centre());
            for (const RotationCell &half : start.cell.halves(m_costsUnder.turnWeights(rotation)))
                smaller.push_back({half, start.prices, 0.0});
        }
        m_starts = std::move(smaller);
    }
}

bool RotationSearch::visitLikely(OrderVisitor &visitor, const OrderVisitor::GoOn &goOn)
{
    begin(visitor, goOn);
    m_leastLikelyMm = std::numeric_limits<double>::infinity();
    for (Start &start : m_starts) {
        if (!mayGoOn(m_pairs.size()))
            return false;
        weigh(start);
    }
    std::sort(m_starts.begin(), m_starts.end(),
              [](const Start &left, const Start &right) { return left.bound < right.bound; });
    return std::all_of(m_starts.begin(), m_starts.begin() + followedCount,
                       [this](const Start &start) { return !(start.bound < forbidden) || follow(start); });
}

/// Leaves an infinite bound where the cell holds no order of interest.
void RotationSearch::weigh(Start &start)
{
    const RotationCell::Matrix rotation = RotationCell::matrixOf(start.cell.centre());
    const double slack = 4.0 * start.cell.spread(m_costsUnder.turnWeights(rotation));
    m_costsUnder.fill(m_costs, rotation, m_pairs);
    const bool isOfInterest = m_assignment.solve(m_pairs, m_costs, allowedCost(slack));
    start.prices = m_assignment.columnPrices();
    start.bound = isOfInterest ? m_assignment.bound() : forbidden;
}

/// The best assignment under a rotation, the best rotation for it, and so on until nothing changes.
bool RotationSearch::follow(const Start &start)
{
    RotationCell::Quaternion rotation = start.cell.centre();
    PointOrder order;
    m_assignment.setColumnPrices(start.prices);
    for (int turn = 0; turn < longestFollowing; ++turn) {
        if (!mayGoOn(m_pairs.size()))
            return false;
        m_costsUnder.fill(m_costs, RotationCell::matrixOf(rotation), m_pairs);
        if (!m_assignment.solve(m_pairs, m_costs))
            return false;
        if (m_assignment.columns() == order)
            break;
        order = m_assignment.columns();
        rotation = m_costsUnder.improved(rotation, order);
    }
    const double sum = std::max(RotationBound::estimate(m_bound.momentsOf(order)), 0.0);
    m_leastLikelyMm = std::min(m_leastLikelyMm, std::sqrt(sum / m_costsUnder.count()) * m_bound.unitMm());
    return m_visitor->visit(order);
}

bool RotationSearch::walk(OrderVisitor &visitor, const OrderVisitor::GoOn &goOn)
{
    begin(visitor, goOn);
    const long steps = fewestSteps + stepsPerPoint * m_costsUnder.count();
    return std::all_of(m_starts.begin(), m_starts.end(), [this, steps](const Start &start) {
        return explore(start.cell, {start.prices, start.bound, 0, steps});
    });
}

/// What an order of interest may cost at the centre of a cell.
double RotationSearch::allowedCost(double slack) const
{
    const double total = m_costsUnder.total();
    return m_bound.sumWithin(m_visitor->limitMm()) + slack + roundingOfTotal * total - total;
}

/// Where the cell around this one tells that it will be cut anyway, nothing is assigned.
bool RotationSearch::explore(const RotationCell &cell, const Hints &hints)
{
    if (!mayGoOn(m_pairs.size()))
        return false;
    const RotationCell::Matrix rotation = RotationCell::matrixOf(cell.centre());
    const RotationCell::Matrix weights = m_costsUnder.turnWeights(rotation);
    const double slack = 4.0 * cell.spread(weights);
    if (hints.skipped < mostSkipped && allowedCost(slack) > hints.cost)
        return divide(cell, weights, {hints.prices, hints.cost, hints.skipped + 1, hints.steps});
    m_costsUnder.fill(m_costs, rotation, m_pairs);
    m_assignment.setColumnPrices(hints.prices);
    if (!m_assignment.solve(m_pairs, m_costs, allowedCost(slack)))
        return !m_ended;
    if (!offer(m_assignment.columns()))
        return false;
    const double gap = allowedCost(slack) - m_assignment.bound();
    if (gap < 0.0)
        return true;
    findRests();
    const bool small = slack < smallShare * gap;
    if (slack < roundingOfTotal * m_costsUnder.total() || isFew(gap, hints.steps, small))
        return visitAll(gap);
    return narrow(cell, weights, gap, small ? std::min(stepsGrowth * hints.steps, mostSteps) : hints.steps);
}

/// A pair whose rest alone is above the gap belongs to no order of interest in this cell.
bool RotationSearch::narrow(const RotationCell &cell, const RotationCell::Matrix &weights, double gap,
                            long steps)
{
    const Prices prices = m_assignment.columnPrices();
    const double cost = m_assignment.bound();
    const bool isNarrower = m_pairs.narrow(m_costs, gap);
    const bool goesOn = divide(cell, weights, {prices, cost, 0, steps});
    if (isNarrower)
        m_pairs.widen();
    return goesOn;
}

bool RotationSearch::divide(const RotationCell &cell, const RotationCell::Matrix &weights, const Hints &hints)
{
    const std::array<RotationCell, 2> halves = cell.halves(weights);
    return std::all_of(halves.begin(), halves.end(),
                       [this, &hints](const RotationCell &half) { return explore(half, hints); });
}

void RotationSearch::findRests()
{
    const double *prices = m_assignment.columnPrices().data();
    const AllowedPairs::Column *columns = m_pairs.columns();
    std::size_t pair = 0;
    for (int i = 0; i < m_pairs.count(); ++i) {
        const double price = m_assignment.rowPrices()[static_cast<std::size_t>(i)];
        for (const std::size_t end = m_pairs.firstOf(i + 1); pair < end; ++pair)
            m_costs[pair] -= price + prices[columns[pair]];
    }
}

/// Whether the orders that are left can be gone through in `steps`.
bool RotationSearch::isFew(double gap, long steps, bool ofAnyPairs)
{
    const std::size_t few = fewestPairs + pairsPerPoint * static_cast<std::size_t>(m_costsUnder.count());
    return m_orders.prepare(m_pairs, m_costs, gap, ofAnyPairs ? m_pairs.size() : few) &&
           m_orders.forEach(steps, *m_goOn, [](const PointOrder &) { return true; }) ==
               CellOrders::Outcome::Complete;
}

bool RotationSearch::visitAll(double gap)
{
    return m_orders.prepare(m_pairs, m_costs, gap, m_pairs.size()) &&
           m_orders.forEach(*m_goOn, [this](const PointOrder &order) { return offer(order); }) ==
               CellOrders::Outcome::Complete;
}

/// False when the order has come a short while ago.
bool RotationSearch::isNew(const PointOrder &order)
{
    std::size_t hash = 0;
    for (const int j : order)
        hash = hash * 31 + static_cast<std::size_t>(j);
    const auto known = m_known.begin() + static_cast<std::ptrdiff_t>(hash % m_knownCount * order.size());
    if (std::equal(order.begin(), order.end(), known))
        return false;
    std::transform(order.begin(), order.end(), known, [](int j) { return static_cast<short>(j); });
    return true;
}

/// Passes a new order on if it may reach the limit.
bool RotationSearch::offer(const PointOrder &order)
{
    return !isNew(order) ||
           m_bound.exceeds(m_bound.momentsOf(order), m_bound.sumWithin(m_visitor->limitMm())) ||
           m_visitor->visit(order);
}
