#pragma once

#include "KeptOrder.h"
#include "OrderFit.h"
#include "RotationBound.h"
#include "TwinPoints.h"

#include <functional>
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
    /// Told about complete orders.
    class Visitor
    {
    public:
        virtual ~Visitor() = default;

        /// The root mean square in mm that orders of interest do not exceed; may fall during the walk.
        [[nodiscard]] virtual double limitMm() const = 0;

        /// False ends the walk.
        virtual bool visit(const PointOrder &order) = 0;
    };

    /// Asked every few steps (less than a few milliseconds apart); false ends the walk.
    using GoOn = std::function<bool()>;

    /// `fit` must outlive the tree. All coordinates finite.
    AssignmentTree(const OrderFit &fit, const TwinPoints &references, const TwinPoints &measured);

    /// Visits every order that may reach the visitor's limit and can start. False when it was ended early.
    [[nodiscard]] bool walk(Visitor &visitor, const GoOn &goOn);

    /// The root mean square in mm that no order falls below, by the lengths of the points alone.
    [[nodiscard]] double leastRmsMm() const;

    /// The root mean square in mm that no order exceeds when its refinement is the best.
    [[nodiscard]] double largestRmsMm() const;

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
    Visitor *m_visitor = nullptr;
    const GoOn *m_goOn = nullptr;
    unsigned m_steps = 0;
};
