#include "KeptOrder.h"

void KeptOrder::offer(const PointOrder &first, const PointOrder &last, double rmsMm)
{
    const auto rounded = static_cast<float>(rmsMm);
    if (!isEmpty() && !(rounded <= m_best))
        return;
    if (isEmpty() || rounded < m_best) {
        m_best = rounded;
        m_first = first;
        m_last.clear();
    }
    if (first < m_first)
        m_first = first;
    if (static_cast<double>(m_best) > rmsMm && (m_last.empty() || last > m_last))
        m_last = last;
}
