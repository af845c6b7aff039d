#pragma once

#include "MatchingPoint.h"
#include "OrderVisitor.h"

#include <array>

/// Fits reference points and ordered measured points: the start from the first three pairs, then the
/// refinement over all. The lists are copied.
class OrderFit
{
public:
    struct Result {
        int startCode = 0;  ///< of trafo3d_3trafo
        int refineCode = 0; ///< of trafo3d_opttrafo; 0 when the start failed
        double rmsMm = 0.0;
        std::array<double, 16> transform = {}; ///< reference from measured, row by row

        [[nodiscard]] bool isValid() const { return startCode == 0 && refineCode == 0; }
    };

    /// At least three points, as many measured as reference points.
    OrderFit(MatchingPoints references, MatchingPoints measured);

    [[nodiscard]] Result fit(const PointOrder &order);

    /// True if the first three pairs of `order` allow a start.
    [[nodiscard]] bool canStart(const PointOrder &order) const;

    /// False if the first three reference points allow no start, whatever is measured.
    [[nodiscard]] bool referencesAllowStart() const { return m_referencesAllowStart; }

    enum class Start { Possible, Impossible, Cancelled };

    /// Whether the reference points and at least one triple of measured points allow a start. `goOn` is asked
    /// before every twenty thousand triples but the first, less than a millisecond apart; false cancels.
    [[nodiscard]] Start anyStart(const OrderVisitor::GoOn &goOn) const;

    [[nodiscard]] const MatchingPoints &references() const { return m_references; }
    [[nodiscard]] const MatchingPoints &measured() const { return m_measured; }

private:
    [[nodiscard]] bool anyThird(int first, int second) const;

    MatchingPoints m_references;
    MatchingPoints m_measured;
    MatchingPoints m_ordered;
    bool m_referencesAllowStart;
};
