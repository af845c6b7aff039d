#pragma once

#include "PointRow.h"
#include "ReferencePointFile.h"

#include <QString>

#include <vector>

class QTableWidget;
class QTableWidgetItem;

/// A table of points: one row per point, one cell per coordinate with two decimals, in millimetres.
///
/// Every change made here is silent: the table's own signals are blocked meanwhile.
class PointTable
{
public:
    enum class Cells { Editable, ReadOnly };

    /// The table is not owned and must live as long as this.
    PointTable(QTableWidget *table, Cells cells);

    [[nodiscard]] int rowCount() const;
    /// -1 when nothing is selected.
    [[nodiscard]] int selectedRow() const;
    [[nodiscard]] bool isEnabled() const;

    /// Puts `rows` in the place of `count` rows, which must exist. Where some of these go, nothing is
    /// selected afterwards.
    void replaceRows(int first, int count, const PointRows &rows);

    void setText(int row, int column, const QString &text);

    /// The texts of the cells of one row, and of all, row by row.
    [[nodiscard]] ReferencePointFile::Row texts(int row) const;
    [[nodiscard]] std::vector<ReferencePointFile::Row> texts() const;
    /// The numbers that the cells show; a cell that shows none counts as 0.
    [[nodiscard]] MatchingPoints points() const;
    /// One row, which must exist, as its cells show it.
    [[nodiscard]] PointRow row(int row) const;

    /// The cell's editor is open.
    [[nodiscard]] bool isBeingEdited(const QTableWidgetItem *item) const;
    /// Scrolls the row into sight if it exists.
    void bringIntoSight(int row);
    /// Scrolls the selected row into sight, or the one added last when none is selected.
    void showSelectedRow();
    /// The arrow keys go on from the row; the selection stays as it is.
    void moveCursorTo(int row);
    /// Nothing is selected afterwards, the cursor is in the first cell of the last row, and what is typed
    /// goes there.
    void beginTypingIntoLastRow();

    /// Sets a row that exists off, with a tool tip that says why.
    void mark(int row, const QString &reason);
    void clearMark();

private:
    void fillRow(int row, const PointRow &contents);
    [[nodiscard]] QTableWidgetItem *makeItem() const;

    QTableWidget *m_table;
    Cells m_cells;
    int m_marked = -1;
};
