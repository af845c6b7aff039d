#include "OrderFit.h"

#include "trafo3d.h"

#include <utility>

namespace
{

const MatchingPoint &pointAt(const MatchingPoints &points, int index)
{
    return points[static_cast<std::size_t>(index)];
}

bool triplesAllowStart(const double *references, const double *measured)
{
    double transform[16];
    return trafo3d_3trafo(transform, references, measured) == 0;
}

} // namespace

OrderFit::OrderFit(MatchingPoints references, MatchingPoints measured)
    : m_references(std::move(references))
    , m_measured(std::move(measured))
    , m_ordered(m_measured)
{
}

OrderFit::Result OrderFit::fit(const PointOrder &order)
{
    for (std::size_t i = 0; i < order.size(); ++i)
        m_ordered[i] = pointAt(m_measured, order[i]);
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
    const MatchingPoint triple[3] = {pointAt(m_measured, order[0]), pointAt(m_measured, order[1]),
                                     pointAt(m_measured, order[2])};
    return triplesAllowStart(m_references.front().data(), triple[0].data());
}

bool OrderFit::canStart() const
{
    const int count = static_cast<int>(m_measured.size());
    if (!triplesAllowStart(m_references.front().data(), m_references.front().data()))
        return false;
    for (int i = 0; i < count; ++i) {
        for (int j = 0; j < count; ++j) {
            for (int k = 0; k < count; ++k) {
                if (canStart({i, j, k}))
                    return true;
            }
        }
    }
    return false;
}
