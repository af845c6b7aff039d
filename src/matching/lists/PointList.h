#pragma once

#include "PointTable.h"

/// A list of points with its table: row i always shows point i.
///
/// Every change made here is silent. Units: millimetres. A row that was put into the table from outside has
/// no point until the cells are taken.
class PointList
{
public:
    /// The table must outlive this.
    PointList(QTableWidget *table, PointTable::Cells cells);

    [[nodiscard]] const MatchingPoints &points() const { return m_points; }
    [[nodiscard]] PointTable &table() { return m_table; }

    /// Rows that exist.
    [[nodiscard]] PointRows rows(int first, int count) const;
    /// Puts `rows` in the place of `count` rows, or of those of them that exist.
    void replace(int first, int count, const PointRows &rows);
    /// The points become what the cells show: they lose the decimals that nobody sees.
    void takeCells();

    /// Whether points may have more decimals than their cells.
    [[nodiscard]] bool isFiner() const { return m_finer; }
    void setFiner(bool finer) { m_finer = finer; }
    /// Finer points for the rows that are there.
    void refine(const MatchingPoints &points);

private:
    PointTable m_table;
    MatchingPoints m_points;
    bool m_finer = false;
};
