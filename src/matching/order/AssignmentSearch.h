#pragma once

#include "OrderFit.h"
#include "OrderVisitor.h"
#include "TwinPoints.h"

#include <memory>
#include <optional>

class BestOrder;
class RivalOrder;
class RotationSearch;

/// Finds the order of the measured points that a loop over all orders keeps, fitting each (see OrderFit,
/// KeptOrder), without going through all of them.
///
/// The result is the loop's: the same order, the same single-precision residual, the same "none is valid".
/// Only where several reference points behind the third are equal, so that exchanging them changes the
/// residual by nothing but rounding, that rounding is compared only as far as 5040 exchanges.
class AssignmentSearch
{
public:
    using GoOn = OrderVisitor::GoOn;

    enum class Outcome { Found, NoValidOrder, TooManyPoints, Cancelled };

    struct Result {
        Outcome outcome = Outcome::NoValidOrder;
        PointOrder order; ///< empty unless Found
        float bestMm = -1.0F;
    };

    enum class Rival { None, Exists, Cancelled };

    /// More points would need more than 64 MB.
    static constexpr std::size_t mostPoints = 1000;

    /// At least three points, as many measured as reference points. The lists are copied.
    AssignmentSearch(const MatchingPoints &references, const MatchingPoints &measured);
    ~AssignmentSearch();

    /// The loop for up to six points. For more the tree for a fixed number of steps (without an end for seven
    /// or eight points), and if that does not suffice, the rotations from what it has found. `goOn` is asked
    /// every few steps, less than a few milliseconds apart; false cancels. It may be empty.
    /// At once, TooManyPoints for more than `mostPoints` and NoValidOrder where the references allow no
    /// start.
    [[nodiscard]] Result run(const GoOn &goOn);

    /// All orders, one after the other.
    [[nodiscard]] Result runLoop();

    /// Branch and bound over pairs.
    [[nodiscard]] Result runTree(const GoOn &goOn);

    /// Branch and bound over rotations.
    [[nodiscard]] Result runRotations(const GoOn &goOn);

    /// Whether another order than the one found fits as well: within 2 % of its residual or within 0.05 mm.
    [[nodiscard]] Rival findRival(const Result &found, const GoOn &goOn);

private:
    [[nodiscard]] std::optional<Result> answerAtOnce(const GoOn &goOn) const;
    [[nodiscard]] bool walkTree(BestOrder &best, const GoOn &goOn);
    [[nodiscard]] bool walkTree(RivalOrder &rival, bool &gaveUp, const GoOn &goOn);
    [[nodiscard]] bool walkRotations(BestOrder &best, const GoOn &goOn);
    [[nodiscard]] bool swapPairs(RivalOrder &rival, const PointOrder &found, const GoOn &goOn) const;
    [[nodiscard]] RotationSearch &rotations();

    OrderFit m_fit;
    TwinPoints m_referenceTwins;
    TwinPoints m_measuredTwins;
    std::unique_ptr<RotationSearch> m_rotations;
    bool m_treeIsFull = false;
};
