#pragma once

#include "AssignmentTree.h"
#include "KeptOrder.h"
#include "OrderFit.h"
#include "TwinPoints.h"

/// Finds the order of the measured points that a loop over all orders keeps, fitting each (see OrderFit,
/// KeptOrder), without going through all of them.
///
/// The result is the loop's: the same order, the same single-precision residual, the same "none is valid".
/// Only where several reference points behind the third are equal, so that exchanging them changes the
/// residual by nothing but rounding, that rounding is compared only as far as 5040 exchanges.
class AssignmentSearch
{
public:
    using GoOn = AssignmentTree::GoOn;

    enum class Outcome { Found, NoValidOrder, Cancelled };

    struct Result {
        Outcome outcome = Outcome::NoValidOrder;
        PointOrder order; ///< empty unless Found
        float bestMm = -1.0F;
    };

    enum class Rival { None, Exists, Cancelled };

    /// At least three points, as many measured as reference points. The lists are copied.
    AssignmentSearch(const MatchingPoints &references, const MatchingPoints &measured);

    /// The loop for up to six points, the tree for more.
    [[nodiscard]] Result run(const GoOn &goOn);

    /// All orders, one after the other.
    [[nodiscard]] Result runLoop();

    /// Branch and bound. `goOn` is asked every few steps, false cancels; it may be empty.
    [[nodiscard]] Result runTree(const GoOn &goOn);

    /// Whether another order than the one found fits as well: within 2 % of its residual or within 0.05 mm.
    [[nodiscard]] Rival findRival(const Result &found, const GoOn &goOn);

private:
    [[nodiscard]] bool isHopeless() const;

    OrderFit m_fit;
    TwinPoints m_referenceTwins;
    TwinPoints m_measuredTwins;
};
