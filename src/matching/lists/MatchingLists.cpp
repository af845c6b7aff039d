#include "MatchingLists.h"

#include <utility>

MatchingLists::MatchingLists(QTableWidget *references, QTableWidget *measured)
    : m_referenceTable(references, PointTable::Cells::Editable)
    , m_measuredTable(measured, PointTable::Cells::ReadOnly)
{
}

void MatchingLists::setReferences(MatchingPoints points)
{
    m_references = std::move(points);
    m_referenceTable.setPoints(m_references);
}

void MatchingLists::addReference()
{
    m_referenceTable.append({0.0, 0.0, 0.0});
    takeReferenceCells();
}

void MatchingLists::removeReference(int row)
{
    m_referenceTable.removeRow(row);
    takeReferenceCells();
}

void MatchingLists::takeReferenceCells()
{
    m_references = m_referenceTable.points();
}

void MatchingLists::takeMeasured(int row, const MatchingPoint &point)
{
    if (row >= 0 && row < static_cast<int>(m_measured.size())) {
        m_measured[static_cast<std::size_t>(row)] = point;
        m_measuredTable.setPoint(row, point);
    } else {
        m_measured.push_back(point);
        m_measuredTable.append(point);
    }
}

void MatchingLists::removeMeasured(int row)
{
    m_measuredTable.removeRow(row);
    if (row < static_cast<int>(m_measured.size()))
        m_measured.erase(m_measured.begin() + row);
}

void MatchingLists::clearMeasured()
{
    m_measuredTable.clear();
    m_measured.clear();
}
