#include "ListChange.h"

#include "PointList.h"

#include <algorithm>
#include <utility>

ListChange::ListChange(PointList &list, int first, PointRows removed, PointRows added, Points points)
    : m_list(list)
    , m_first(first)
    , m_removed(std::move(removed))
    , m_added(std::move(added))
    , m_points(points)
{
}

void ListChange::redo()
{
    m_wasFiner = m_list.isFiner();
    if (m_wasFiner && m_points == Points::FromCells)
        m_finerPoints = m_list.points();
    m_list.replace(m_first, static_cast<int>(m_removed.size()), m_added);
    if (m_points == Points::FromCells)
        m_list.takeCells();
    else
        m_list.setFiner(true);
    lead(m_added.size(), m_removed.size());
}

void ListChange::undo()
{
    m_list.replace(m_first, static_cast<int>(m_added.size()), m_removed);
    m_list.setFiner(m_wasFiner);
    if (m_wasFiner && m_points == Points::FromCells)
        m_list.refine(std::exchange(m_finerPoints, {}));
    lead(m_removed.size(), m_added.size());
}

/// Shows where something has changed, and leads the cursor to rows that were not there before.
void ListChange::lead(std::size_t shown, std::size_t before)
{
    PointTable &table = m_list.table();
    const int row = std::min(m_first, table.rowCount() - 1);
    table.bringIntoSight(row);
    if (shown > before)
        table.moveCursorTo(row);
}
