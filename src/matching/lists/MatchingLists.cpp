#include "MatchingLists.h"

MatchingLists::MatchingLists(QTableWidget *references, QTableWidget *measured)
    : m_references(references, PointTable::Cells::Editable)
    , m_measured(measured, PointTable::Cells::ReadOnly)
{
}
