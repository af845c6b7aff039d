#pragma once

#include "PointOrder.h"
#include "TwinPoints.h"

#include <functional>

/// The orders that differ from a given one only by an exchange of equal points.
class TwinOrders
{
public:
    TwinOrders(const TwinPoints &references, const TwinPoints &measured)
        : m_references(references)
        , m_measured(measured)
    {
    }

    /// The lexicographically first of them.
    [[nodiscard]] PointOrder first(const PointOrder &order) const { return outermost(order, false); }

    /// The lexicographically last of them.
    [[nodiscard]] PointOrder last(const PointOrder &order) const { return outermost(order, true); }

    /// Calls for the orders that give equal reference points other partners, one of those that only exchange
    /// equal measured points each; for `largest` of them at most.
    void forEachExchange(const PointOrder &order, int largest,
                         const std::function<void(const PointOrder &)> &call) const;

private:
    [[nodiscard]] PointOrder outermost(const PointOrder &order, bool last) const;

    const TwinPoints &m_references;
    const TwinPoints &m_measured;
};
