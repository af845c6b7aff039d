#include "PointList.h"

#include <algorithm>

PointList::PointList(QTableWidget *table, PointTable::Cells cells)
    : m_table(table, cells)
{
}

PointRows PointList::rows(int first, int count) const
{
    PointRows rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int row = first; row < first + count; ++row) {
        rows.push_back(m_table.row(row));
        const auto index = static_cast<std::size_t>(row);
        if (index < m_points.size())
            rows.back().point = m_points[index];
    }
    return rows;
}

void PointList::replace(int first, int count, const PointRows &rows)
{
    const int begin = std::min(first, m_table.rowCount());
    m_table.replaceRows(begin, std::min(count, m_table.rowCount() - begin), rows);
    const auto place = [this](int row) {
        return m_points.begin() + std::min<std::ptrdiff_t>(row, std::ptrdiff_t(m_points.size()));
    };
    auto point = m_points.erase(place(first), place(first + count));
    point = m_points.insert(point, rows.size(), MatchingPoint{});
    std::transform(rows.begin(), rows.end(), point, [](const PointRow &row) { return row.point; });
}

void PointList::takeCells()
{
    m_points = m_table.points();
    m_finer = false;
}

void PointList::refine(const MatchingPoints &points)
{
    m_points = points;
    m_finer = true;
}
