#pragma once

#include "PointOrder.h"

/// What a loop over all orders in lexicographic sequence keeps, found in any sequence.
///
/// The loop holds its best residual in single precision and keeps an order whose residual, in double
/// precision, is below it. Let f be the smallest residual of all in single precision. The loop ends with the
/// last order (lexicographically) that rounds to f and lies below f, and if none lies below, with the first
/// that rounds to f.
class KeptOrder
{
public:
    /// Takes a valid order with its residual in mm. Offering an order twice changes nothing.
    void offer(const PointOrder &order, double rmsMm) { offer(order, order, rmsMm); }

    /// Takes all orders at once that have this residual; `first` and `last` are the outermost of them.
    void offer(const PointOrder &first, const PointOrder &last, double rmsMm);

    [[nodiscard]] bool isEmpty() const { return m_first.empty(); }

    /// The best residual, mm.
    [[nodiscard]] float best() const { return m_best; }

    [[nodiscard]] const PointOrder &order() const { return m_last.empty() ? m_first : m_last; }

private:
    float m_best = -1.0F;
    PointOrder m_first;
    PointOrder m_last;
};
