#include "OrderFit.h"

#include "PointArithmetic.h"
#include "trafo3d.h"

#include <utility>

namespace
{

constexpr int triplesBetweenQuestions = 20000;

/// A start fails by either triple alone.
bool allowsStart(const double *triple)
{
    double transform[16];
    return trafo3d_3trafo(transform, triple, triple) == 0;
}

} // namespace

OrderFit::OrderFit(MatchingPoints references, MatchingPoints measured)
    : m_references(std::move(references))
    , m_measured(std::move(measured))
    , m_ordered(m_measured)
    , m_referencesAllowStart(allowsStart(m_references.front().data()))
{
}

OrderFit::Result OrderFit::fit(const PointOrder &order)
{
    for (std::size_t i = 0; i < order.size(); ++i)
        m_ordered[i] = at(m_measured, order[i]);
    Result result;
    const double *references = m_references.front().data();
    result.startCode = trafo3d_3trafo(result.transform.data(), references, m_ordered.front().data());
    if (result.startCode == 0)
        result.refineCode =
            trafo3d_opttrafo(result.transform.data(), nullptr, references, m_ordered.front().data(),
                             static_cast<int>(order.size()), &result.rmsMm);
    return result;
}

bool OrderFit::canStart(const PointOrder &order) const
{
    const MatchingPoint triple[3] = {at(m_measured, order[0]), at(m_measured, order[1]),
                                     at(m_measured, order[2])};
    return m_referencesAllowStart && allowsStart(triple[0].data());
}

OrderFit::Start OrderFit::anyStart(const OrderVisitor::GoOn &goOn) const
{
    if (!m_referencesAllowStart)
        return Start::Impossible;
    const int count = static_cast<int>(m_measured.size());
    int asked = 0;
    for (int i = 0; i < count; ++i) {
        for (int j = 0; j < count; ++j) {
            asked += count;
            if (asked > triplesBetweenQuestions) {
                asked = 0;
                if (goOn && !goOn())
                    return Start::Cancelled;
            }
            if (anyThird(i, j))
                return Start::Possible;
        }
    }
    return Start::Impossible;
}

/// Whether the two points and any third one allow a start. Most that do not are told by the normal, which is
/// then exactly zero.
bool OrderFit::anyThird(int first, int second) const
{
    const MatchingPoint &p = at(m_measured, first), &q = at(m_measured, second);
    const MatchingPoint u = difference(q, p);
    for (int third = 0; third < static_cast<int>(m_measured.size()); ++third) {
        const MatchingPoint &r = at(m_measured, third);
        const bool noNormal = crossProduct(u, difference(r, p)) == MatchingPoint{};
        if (!noNormal && canStart({first, second, third}))
            return true;
    }
    return false;
}
