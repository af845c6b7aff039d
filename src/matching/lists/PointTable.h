#pragma once

#include "MatchingPoint.h"
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

    void setPoints(const MatchingPoints &points);
    /// Adds a row and brings it into sight.
    void append(const MatchingPoint &point);
    /// Brings the row, which must exist, into sight.
    void setPoint(int row, const MatchingPoint &point);
    /// The row must exist. Nothing is selected afterwards.
    void removeRow(int row);
    void clear();

    void setText(int row, int column, const QString &text);

    /// The texts of the cells, row by row.
    [[nodiscard]] std::vector<ReferencePointFile::Row> texts() const;
    /// The numbers that the cells show; a cell that shows none counts as 0.
    [[nodiscard]] MatchingPoints points() const;

    /// The cell's editor is open.
    [[nodiscard]] bool isBeingEdited(const QTableWidgetItem *item) const;
    /// Scrolls the selected row into sight.
    void showSelectedRow();
    /// Nothing is selected afterwards, the cursor is in the first cell of the last row, and what is typed
    /// goes there.
    void beginTypingIntoLastRow();

    /// Sets a row that exists off, with a tool tip that says why.
    void mark(int row, const QString &reason);
    void clearMark();

private:
    void fillRow(int row, const MatchingPoint &point);
    void setCell(int row, int column, const QString &text);

    QTableWidget *m_table;
    Cells m_cells;
    int m_marked = -1;
};
