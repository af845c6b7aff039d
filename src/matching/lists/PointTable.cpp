#include "PointTable.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QSignalBlocker>
#include <QStyle>
#include <QTableWidget>

namespace
{

constexpr int coordinates = 3;
constexpr int rowHeight = 28;

const QColor markedBackground(255, 232, 140);
const QColor markedText(30, 30, 30);

} // namespace

PointTable::PointTable(QTableWidget *table, Cells cells)
    : m_table(table)
    , m_cells(cells)
{
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->verticalHeader()->setMinimumSectionSize(rowHeight);
    table->verticalHeader()->setDefaultSectionSize(rowHeight);
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
}

int PointTable::rowCount() const
{
    return m_table->rowCount();
}

int PointTable::selectedRow() const
{
    const QModelIndexList selected = m_table->selectionModel()->selectedIndexes();
    return selected.isEmpty() ? -1 : selected.first().row();
}

void PointTable::setPoints(const MatchingPoints &points)
{
    const QSignalBlocker blocker(m_table);
    clear();
    m_table->setRowCount(static_cast<int>(points.size()));
    for (int row = 0; row < m_table->rowCount(); ++row)
        fillRow(row, points[static_cast<std::size_t>(row)]);
}

void PointTable::append(const MatchingPoint &point)
{
    const QSignalBlocker blocker(m_table);
    const int row = m_table->rowCount();
    m_table->setRowCount(row + 1);
    fillRow(row, point);
    m_table->setCurrentCell(row, 0, QItemSelectionModel::NoUpdate);
    m_table->scrollToBottom();
}

void PointTable::setPoint(int row, const MatchingPoint &point)
{
    const QSignalBlocker blocker(m_table);
    fillRow(row, point);
    m_table->scrollToItem(m_table->item(row, 0));
}

void PointTable::removeRow(int row)
{
    const QSignalBlocker blocker(m_table);
    clearMark();
    m_table->removeRow(row);
    m_table->clearSelection();
}

void PointTable::clear()
{
    const QSignalBlocker blocker(m_table);
    m_table->clearContents();
    m_table->setRowCount(0);
    m_marked = -1;
}

void PointTable::setText(int row, int column, const QString &text)
{
    const QSignalBlocker blocker(m_table);
    setCell(row, column, text);
}

std::vector<ReferencePointFile::Row> PointTable::texts() const
{
    std::vector<ReferencePointFile::Row> rows(static_cast<std::size_t>(rowCount()));
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < coordinates; ++column) {
            const QTableWidgetItem *item = m_table->item(row, column);
            if (item)
                rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = item->text();
        }
    }
    return rows;
}

MatchingPoints PointTable::points() const
{
    MatchingPoints points;
    points.reserve(static_cast<std::size_t>(rowCount()));
    for (const ReferencePointFile::Row &row : texts())
        points.push_back({row[0].toDouble(), row[1].toDouble(), row[2].toDouble()});
    return points;
}

bool PointTable::isBeingEdited(const QTableWidgetItem *item) const
{
    return m_table->isPersistentEditorOpen(const_cast<QTableWidgetItem *>(item));
}

void PointTable::showSelectedRow()
{
    const int row = selectedRow();
    if (row >= 0)
        m_table->scrollToItem(m_table->item(row, 0));
}

void PointTable::beginTypingIntoLastRow()
{
    m_table->clearSelection();
    m_table->setCurrentCell(rowCount() - 1, 0, QItemSelectionModel::NoUpdate);
    m_table->setFocus();
}

void PointTable::mark(int row, const QString &reason)
{
    const QSignalBlocker blocker(m_table);
    clearMark();
    m_marked = row;
    for (int column = 0; column < coordinates; ++column) {
        QTableWidgetItem *item = m_table->item(row, column);
        if (!item)
            continue;
        QFont font = m_table->font();
        font.setBold(true);
        item->setFont(font);
        item->setBackground(markedBackground);
        item->setForeground(markedText);
        item->setToolTip(reason);
        if (column == 0)
            item->setIcon(m_table->style()->standardIcon(QStyle::SP_MessageBoxWarning));
    }
}

void PointTable::clearMark()
{
    const QSignalBlocker blocker(m_table);
    for (int column = 0; column < coordinates; ++column) {
        QTableWidgetItem *item = m_table->item(m_marked, column);
        if (!item)
            continue;
        for (const int role :
             {Qt::FontRole, Qt::BackgroundRole, Qt::ForegroundRole, Qt::ToolTipRole, Qt::DecorationRole})
            item->setData(role, QVariant());
    }
    m_marked = -1;
}

void PointTable::fillRow(int row, const MatchingPoint &point)
{
    for (int column = 0; column < coordinates; ++column)
        setCell(row, column, QString::number(point[static_cast<std::size_t>(column)], 'f', 2));
}

void PointTable::setCell(int row, int column, const QString &text)
{
    QTableWidgetItem *item = m_table->item(row, column);
    if (!item) {
        item = new QTableWidgetItem;
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (m_cells == Cells::ReadOnly)
            item->setFlags(item->flags() & ~Qt::ItemIsEditable);
        m_table->setItem(row, column, item);
    }
    item->setText(text);
}
