#pragma once

#include "OrderFit.h"
#include "OrderVisitor.h"
#include "RotationBound.h"
#include "TwinPoints.h"

#include <vector>

/// Walks through the orders of measured points that can fit as well as a limit asks for, and leaves out the
/// rest by lower bounds.
///
/// Pairs are assigned one after the other, at each step to the reference point with the fewest partners left.
/// A partner is left as long as it, together with all pairs assigned before, does not exceed the limit.
/// Of the orders that only exchange equal points, one is visited (see TwinPoints; the first three reference
/// points, from which the fit starts, are never exchanged).
class AssignmentTree
{
public:
    /// `fit` must outlive the tree. All coordinates finite.
    AssignmentTree(const OrderFit &fit, const TwinPoints &references, const TwinPoints &measured);

    /// Visits every order that may reach the visitor's limit and can start. False when it was ended early.
    [[nodiscard]] bool walk(OrderVisitor &visitor, const OrderVisitor::GoOn &goOn);

    /// The root mean square in mm that no order falls below, by the lengths of the points alone.
    [[nodiscard]] double leastRmsMm() const;

    /// The root mean square in mm that no order exceeds when its refinement is the best.
    [[nodiscard]] double largestRmsMm() const;

    /// True when a walk ended because it would have needed more than 32 MB.
    [[nodiscard]] bool isFull() const;

private:
    struct Level {
        RotationBound::Moments moments;
        std::vector<std::vector<int>> partners; ///< for every reference point; of no meaning once assigned
    };

    struct Branch {
        double estimate;
        int measured;
    };

    bool descend(int depth);
    bool visitSingle(const Level &level);
    bool tryPartner(int depth, int reference, int measured);
    bool assign(int depth, int reference, int measured);
    void release(int reference, int measured);
    bool fillLevel(int depth);
    bool everyoneHasAPartner(const Level &level);
    [[nodiscard]] int narrowest(const Level &level) const;
    [[nodiscard]] std::vector<Branch> branches(const Level &level, int reference) const;
    [[nodiscard]] bool isFirstOfTwins(int measured) const;
    [[nodiscard]] bool keepsTwinsAscending(int reference, int measured) const;
    [[nodiscard]] bool triplePasses(int reference) const;
    [[nodiscard]] double limit() const;
    void countPartners(int depth);
    bool mayGoOn();

    const OrderFit &m_fit;
    const TwinPoints &m_referenceTwins;
    const TwinPoints &m_measuredTwins;
    RotationBound m_bound;
    int m_count;
    std::vector<Level> m_levels;
    PointOrder m_order;
    std::vector<char> m_referenceTaken;
    std::vector<char> m_measuredTaken;
    std::vector<char> m_covered;
    OrderVisitor *m_visitor = nullptr;
    const OrderVisitor::GoOn *m_goOn = nullptr;
    std::size_t m_work = 0;
    std::vector<std::size_t> m_listedAt; ///< the most partners that every level has had room for
    std::size_t m_listed = 0;            ///< their sum
};
