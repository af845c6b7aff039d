#include "RotationSearch.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr std::size_t startCount = 512;
constexpr std::size_t followedCount = 24;
constexpr int longestFollowing = 12;
constexpr std::size_t knownNumbers = 1U << 20U;
constexpr std::size_t mostKnown = 1U << 15U;

/// Room for rounding, of all that is added up.
constexpr double roundingOfTotal = 1e-12;

constexpr double forbidden = std::numeric_limits<double>::infinity();

/// Above so many pairs a cell is rather cut.
constexpr std::size_t fewestPairs = 40;
constexpr std::size_t pairsPerPoint = 6;
constexpr long fewestSteps = 100;
constexpr long stepsPerPoint = 12;
constexpr long mostSteps = 200000;

constexpr unsigned workBetweenQuestions = 20000;

} // namespace

RotationSearch::RotationSearch(const MatchingPoints &references, const MatchingPoints &measured,
                               const TwinPoints &referenceTwins, const TwinPoints &measuredTwins)
    : m_bound(references, measured)
    , m_costsUnder(m_bound.centredReferences(), m_bound.centredMeasured())
    , m_assignment(m_costsUnder.count())
    , m_orders(referenceTwins, measuredTwins)
    , m_costs(references.size() * references.size())
    , m_penalties(m_costs.size(), 0.0)
    , m_rests(m_costs.size())
    , m_knownCount(std::min(mostKnown, knownNumbers / references.size()))
    , m_known(m_knownCount * references.size())
{
}

void RotationSearch::begin(OrderVisitor &visitor, const OrderVisitor::GoOn &goOn)
{
    m_visitor = &visitor;
    m_goOn = &goOn;
    std::fill(m_known.begin(), m_known.end(), short(-1));
    std::fill(m_penalties.begin(), m_penalties.end(), 0.0);
    m_excluded.clear();
    makeStarts();
}

double RotationSearch::largestRmsMm() const
{
    return std::sqrt(m_costsUnder.total() / m_costsUnder.count()) * m_bound.unitMm();
}

bool RotationSearch::mayGoOn()
{
    m_steps += static_cast<unsigned>(m_costs.size());
    if (m_steps < workBetweenQuestions)
        return true;
    m_steps = 0;
    return !*m_goOn || (*m_goOn)();
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
        if (!mayGoOn())
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
    m_costsUnder.fill(m_costs, rotation, m_penalties);
    const bool isOfInterest = m_assignment.solve(m_costs, allowedCost(slack));
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
        if (!mayGoOn())
            return false;
        m_costsUnder.fill(m_costs, RotationCell::matrixOf(rotation), m_penalties);
        (void)m_assignment.solve(m_costs);
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
    return std::all_of(m_starts.begin(), m_starts.end(),
                       [this](const Start &start) { return explore(start.cell, start.prices); });
}

/// What an order of interest may cost at the centre of a cell.
double RotationSearch::allowedCost(double slack) const
{
    const double total = m_costsUnder.total();
    return m_bound.sumWithin(m_visitor->limitMm()) + slack + roundingOfTotal * total - total;
}

bool RotationSearch::explore(const RotationCell &cell, const Prices &prices)
{
    if (!mayGoOn())
        return false;
    const RotationCell::Matrix rotation = RotationCell::matrixOf(cell.centre());
    const RotationCell::Matrix weights = m_costsUnder.turnWeights(rotation);
    const double slack = 4.0 * cell.spread(weights);
    m_costsUnder.fill(m_costs, rotation, m_penalties);
    m_assignment.setColumnPrices(prices);
    if (!m_assignment.solve(m_costs, allowedCost(slack)))
        return true;
    if (!offer(m_assignment.columns()))
        return false;
    const double gap = allowedCost(slack) - m_assignment.bound();
    if (gap < 0.0)
        return true;
    const std::size_t excludedBefore = m_excluded.size();
    findRests();
    exclude(gap);
    const bool goesOn =
        isFew(gap) || slack < roundingOfTotal * m_costsUnder.total() ? visitAll(gap) : divide(cell, weights);
    admit(excludedBefore);
    return goesOn;
}

bool RotationSearch::divide(const RotationCell &cell, const RotationCell::Matrix &weights)
{
    const Prices prices = m_assignment.columnPrices();
    const std::array<RotationCell, 2> halves = cell.halves(weights);
    return std::all_of(halves.begin(), halves.end(),
                       [this, &prices](const RotationCell &half) { return explore(half, prices); });
}

void RotationSearch::findRests()
{
    const std::vector<double> &rows = m_assignment.rowPrices(), &columns = m_assignment.columnPrices();
    const std::size_t count = rows.size();
    for (std::size_t i = 0; i < count; ++i) {
        const double *costs = m_costs.data() + i * count;
        double *rests = m_rests.data() + i * count;
        const double price = rows[i];
        for (std::size_t j = 0; j < count; ++j)
            rests[j] = costs[j] - price - columns[j];
    }
}

/// A pair whose rest alone is above the gap belongs to no order of interest in this cell.
void RotationSearch::exclude(double gap)
{
    for (std::size_t pair = 0; pair < m_rests.size(); ++pair) {
        if (m_rests[pair] > gap && m_penalties[pair] < forbidden) {
            m_penalties[pair] = forbidden;
            m_excluded.push_back(pair);
        }
    }
}

void RotationSearch::admit(std::size_t excludedBefore)
{
    for (std::size_t i = excludedBefore; i < m_excluded.size(); ++i)
        m_penalties[m_excluded[i]] = 0.0;
    m_excluded.resize(excludedBefore);
}

/// Whether the orders that are left can be gone through in a few steps. From time to time many are tried,
/// twice as many after each time in vain, so that in the end this takes no longer than the cells: where even
/// the smallest cell has many orders, cutting alone would not end.
bool RotationSearch::isFew(double gap)
{
    const auto count = static_cast<std::size_t>(m_costsUnder.count());
    if (!m_orders.prepare(m_rests, gap, fewestPairs + pairsPerPoint * count))
        return false;
    m_savedSteps += static_cast<long>(m_costs.size() / 2);
    const bool many = m_savedSteps > m_manySteps;
    const long steps = many ? m_manySteps : fewestSteps + stepsPerPoint * m_costsUnder.count();
    const bool few =
        m_orders.forEach(steps, [](const PointOrder &) { return true; }) == CellOrders::Outcome::Complete;
    if (many)
        m_savedSteps = 0;
    if (many && !few && m_manySteps < mostSteps)
        m_manySteps *= 2;
    return few;
}

bool RotationSearch::visitAll(double gap)
{
    return m_orders.prepare(m_rests, gap, m_rests.size()) &&
           m_orders.forEach(*m_goOn, [this](const PointOrder &order) { return offer(order); }) ==
               CellOrders::Outcome::Complete;
}

/// Passes an order on if it may reach the limit and has not come a short while ago.
bool RotationSearch::offer(const PointOrder &order)
{
    std::size_t hash = 0;
    for (const int j : order)
        hash = hash * 31 + static_cast<std::size_t>(j);
    const auto known = m_known.begin() + static_cast<std::ptrdiff_t>(hash % m_knownCount * order.size());
    if (std::equal(order.begin(), order.end(), known))
        return true;
    std::transform(order.begin(), order.end(), known, [](int j) { return static_cast<short>(j); });
    return m_bound.exceeds(m_bound.momentsOf(order), m_bound.sumWithin(m_visitor->limitMm())) ||
           m_visitor->visit(order);
}
