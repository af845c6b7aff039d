#pragma once

#include "KeptOrder.h"
#include "OrderFit.h"
#include "OrderVisitor.h"
#include "TwinOrders.h"

#include <limits>

/// Fits every order that comes, and those that only exchange equal points with it, and keeps what the loop
/// would keep of them.
class BestOrder : public OrderVisitor
{
public:
    /// All must outlive it.
    BestOrder(OrderFit &fit, const TwinPoints &references, const TwinPoints &measured);

    /// Root mean square in mm; no more than the best of all that have come is of interest anyway.
    void setLimit(double limitMm) { m_limitMm = limitMm; }

    [[nodiscard]] const KeptOrder &kept() const { return m_kept; }

    [[nodiscard]] double limitMm() const override;

    /// Always true.
    bool visit(const PointOrder &order) override;

private:
    void offer(const PointOrder &order);
    [[nodiscard]] bool roundingDecides(double rmsMm) const;

    OrderFit &m_fit;
    bool m_exchanges;
    bool m_twins;
    TwinPoints m_singles;
    TwinOrders m_orders;
    TwinOrders m_sameNumbers;
    double m_noiseMm;
    double m_limitMm = std::numeric_limits<double>::infinity();
    KeptOrder m_kept;
};
