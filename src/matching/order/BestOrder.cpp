#include "BestOrder.h"

#include "PointArithmetic.h"

#include <algorithm>

namespace
{

constexpr int largestExchangeCount = 5040;

} // namespace

BestOrder::BestOrder(OrderFit &fit, const TwinPoints &references, const TwinPoints &measured)
    : m_fit(fit)
    , m_exchanges(references.any())
    , m_twins(m_exchanges || measured.any())
    , m_singles(fit.references(), static_cast<int>(fit.references().size()))
    , m_orders(references, measured)
    , m_sameNumbers(m_singles, measured)
    , m_noiseMm(1e-13 * (largestCoordinate(fit.references()) + largestCoordinate(fit.measured())))
{
}

double BestOrder::limitMm() const
{
    return m_kept.isEmpty() ? m_limitMm : std::min(m_limitMm, static_cast<double>(m_kept.best()));
}

bool BestOrder::visit(const PointOrder &order)
{
    const OrderFit::Result fit = m_fit.fit(order);
    if (!fit.isValid())
        return true;
    if (!m_twins)
        m_kept.offer(order, fit.rmsMm);
    else if (m_exchanges && roundingDecides(fit.rmsMm))
        m_orders.forEachExchange(order, largestExchangeCount,
                                 [this](const PointOrder &other) { offer(other); });
    else
        m_kept.offer(m_orders.first(order), m_orders.last(order), fit.rmsMm);
    return true;
}

/// Equal measured points give the same numbers in any order.
void BestOrder::offer(const PointOrder &order)
{
    const OrderFit::Result fit = m_fit.fit(order);
    if (fit.isValid())
        m_kept.offer(m_sameNumbers.first(order), m_sameNumbers.last(order), fit.rmsMm);
}

/// True if residuals that differ by rounding may differ in single precision, or in being below it.
bool BestOrder::roundingDecides(double rmsMm) const
{
    const double noise = 1e-12 * rmsMm + m_noiseMm;
    const double low = rmsMm - noise, high = rmsMm + noise;
    const auto rounded = static_cast<float>(rmsMm);
    const auto single = static_cast<double>(rounded);
    return static_cast<float>(low) < rounded || static_cast<float>(high) > rounded ||
           (low <= single && single <= high);
}
