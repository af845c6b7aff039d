#pragma once

#include "AllowedPairs.h"
#include "CellOrders.h"
#include "LinearAssignment.h"
#include "OrderVisitor.h"
#include "RotationBound.h"
#include "RotationCell.h"
#include "RotationCosts.h"

#include <vector>

/// Walks through the orders of measured points that can fit as well as a limit asks for, by way of the
/// rotations that they fit best under.
///
/// In a part of all rotations (RotationCell) an order costs at its centre no more than at its own best
/// rotation and what the turn between them adds (RotationCosts::turnWeights). So a cell whose best assignment
/// at the centre costs more than the limit and that addition holds no order of interest; otherwise the
/// assignment's prices exclude pairs for the whole cell, and the few orders that are left are visited, or the
/// cell is cut in two. The work grows with a power of the number of points where the tree (AssignmentTree)
/// grows without end; for points that fit, the tree is quicker. Orders that only exchange equal points count
/// as one, as in the tree. Source: H. Li, R. Hartley, ICCV 2007.
class RotationSearch
{
public:
    /// All coordinates finite. Keeps up to 50 bytes for every pair of points.
    RotationSearch(const MatchingPoints &references, const MatchingPoints &measured,
                   const TwinPoints &referenceTwins, const TwinPoints &measuredTwins);

    ~RotationSearch() = default;
    RotationSearch(const RotationSearch &) = delete;
    RotationSearch &operator=(const RotationSearch &) = delete;

    /// Visits orders that are probably among the best: those that assignment and rotation in turn lead to,
    /// from rotations all over. The visitor's limit may be infinite. False when it was ended early.
    [[nodiscard]] bool visitLikely(OrderVisitor &visitor, const OrderVisitor::GoOn &goOn);

    /// Visits every order that may reach the visitor's limit, which must be finite. False when it was ended
    /// early.
    [[nodiscard]] bool walk(OrderVisitor &visitor, const OrderVisitor::GoOn &goOn);

    /// The least root mean square in mm of the orders that visitLikely() led to.
    [[nodiscard]] double leastLikelyRmsMm() const { return m_leastLikelyMm; }

    /// The root mean square in mm that no order exceeds when its refinement is the best.
    [[nodiscard]] double largestRmsMm() const;

private:
    using Prices = std::vector<double>;

    struct Start {
        RotationCell cell;
        Prices prices;
        double bound = 0.0;
    };

    /// What the cell around one tells about it.
    struct Hints {
        const Prices &prices;
        double cost; ///< at its centre, about
        int skipped; ///< cells in which nothing was assigned since
        long steps;  ///< that going through the orders that are left is worth
    };

    void begin(OrderVisitor &visitor, const OrderVisitor::GoOn &goOn);
    void makeStarts();
    void weigh(Start &start);
    bool follow(const Start &start);
    bool explore(const RotationCell &cell, const Hints &hints);
    bool narrow(const RotationCell &cell, const RotationCell::Matrix &weights, double gap, long steps);
    bool divide(const RotationCell &cell, const RotationCell::Matrix &weights, const Hints &hints);
    [[nodiscard]] double allowedCost(double slack) const;
    void findRests();
    bool isNew(const PointOrder &order);
    bool offer(const PointOrder &order);
    [[nodiscard]] bool isFew(double gap, long steps, bool ofAnyPairs);
    bool visitAll(double gap);
    bool mayGoOn(std::size_t work);

    RotationBound m_bound;
    RotationCosts m_costsUnder;
    LinearAssignment m_assignment;
    CellOrders m_orders;
    std::vector<Start> m_starts;
    AllowedPairs m_pairs;        ///< that orders of interest in the cell may have
    std::vector<double> m_costs; ///< of those; once they are assigned, their rests
    std::size_t m_knownCount;
    std::vector<short> m_known; ///< orders that have come, each at a place that its numbers tell
    OrderVisitor *m_visitor = nullptr;
    const OrderVisitor::GoOn *m_goOn = nullptr;
    bool m_ended = false;
    double m_leastLikelyMm = 0.0;
    std::size_t m_steps = 0;
};
