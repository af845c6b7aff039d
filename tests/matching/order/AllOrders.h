#pragma once

#include "OrderFit.h"
#include "OrderVisitor.h"
#include "PointSets.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <utility>

/// Both lists of a case with some noise: `count` reference points, and the measured ones moved and shuffled.
struct MatchingCase {
    MatchingCase(PointSets &sets, int count, double sigmaMm)
    {
        const std::vector<double> points = sets.box(count, 500.0);
        references = asPoints(points);
        measured = asPoints(sets.shuffled(sets.moved(points, sigmaMm)));
    }

    MatchingPoints references;
    MatchingPoints measured;
};

/// Keeps the orders that a walk visits; the limit stays as it is.
class VisitedOrders : public OrderVisitor
{
public:
    explicit VisitedOrders(double limitMm, std::size_t most = 1000000)
        : m_limitMm(limitMm)
        , m_most(most)
    {
    }

    [[nodiscard]] double limitMm() const override { return m_limitMm; }
    bool visit(const PointOrder &order) override
    {
        orders.insert(order);
        return ++visits < m_most;
    }

    std::set<PointOrder> orders;
    std::size_t visits = 0;

private:
    double m_limitMm;
    std::size_t m_most;
};

/// All orders whose fit is valid and does not exceed the limit, found by fitting every one.
inline std::set<PointOrder> ordersWithin(const MatchingCase &lists, double limitMm)
{
    OrderFit fit(lists.references, lists.measured);
    std::set<PointOrder> found;
    PointOrder order(lists.references.size());
    std::iota(order.begin(), order.end(), 0);
    do {
        const OrderFit::Result result = fit.fit(order);
        if (result.isValid() && result.rmsMm <= limitMm)
            found.insert(order);
    } while (std::next_permutation(order.begin(), order.end()));
    return found;
}

inline bool containsAll(const std::set<PointOrder> &visited, const std::set<PointOrder> &wanted)
{
    return std::includes(visited.begin(), visited.end(), wanted.begin(), wanted.end());
}
