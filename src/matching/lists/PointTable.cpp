#include "PointTable.h"

#include "PointItem.h"

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

double shownNumber(QTableWidgetItem *item)
{
    if (PointItem *own = PointItem::from(item))
        return own->shownNumber();
    return item ? item->text().toDouble() : 0.0;
}

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

bool PointTable::isEnabled() const
{
    return m_table->isEnabled();
}

void PointTable::replaceRows(int first, int count, const PointRows &rows)
{
    const QSignalBlocker blocker(m_table);
    clearMark();
    const int added = static_cast<int>(rows.size());
    if (added < count)
        m_table->model()->removeRows(first + added, count - added);
    else if (added > count)
        m_table->model()->insertRows(first + count, added - count);
    if (count > 0 && added != count)
        m_table->clearSelection();
    // The view would look at each cell of a long list anew.
    const QSignalBlocker silence(m_table->model());
    for (int row = 0; row < added; ++row)
        fillRow(first + row, rows[static_cast<std::size_t>(row)]);
    m_table->viewport()->update();
}

void PointTable::setText(int row, int column, const QString &text)
{
    const QSignalBlocker blocker(m_table);
    QTableWidgetItem *item = m_table->item(row, column);
    if (PointItem *own = PointItem::from(item))
        own->showText(text);
    else if (item)
        item->setText(text);
}

ReferencePointFile::Row PointTable::texts(int row) const
{
    ReferencePointFile::Row texts;
    for (int column = 0; column < coordinates; ++column) {
        if (const QTableWidgetItem *item = m_table->item(row, column))
            texts[static_cast<std::size_t>(column)] = item->text();
    }
    return texts;
}

std::vector<ReferencePointFile::Row> PointTable::texts() const
{
    std::vector<ReferencePointFile::Row> rows;
    rows.reserve(static_cast<std::size_t>(rowCount()));
    for (int row = 0; row < rowCount(); ++row)
        rows.push_back(texts(row));
    return rows;
}

MatchingPoints PointTable::points() const
{
    MatchingPoints points(static_cast<std::size_t>(rowCount()));
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < coordinates; ++column)
            points[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] =
                shownNumber(m_table->item(row, column));
    }
    return points;
}

PointRow PointTable::row(int row) const
{
    PointRow contents;
    for (int column = 0; column < coordinates; ++column) {
        const auto axis = static_cast<std::size_t>(column);
        QTableWidgetItem *item = m_table->item(row, column);
        contents.point[axis] = shownNumber(item);
        if (const PointItem *own = PointItem::from(item))
            contents.texts[axis] = own->typedText();
        else if (item)
            contents.texts[axis] = item->text();
    }
    return contents;
}

bool PointTable::isBeingEdited(const QTableWidgetItem *item) const
{
    return m_table->isPersistentEditorOpen(const_cast<QTableWidgetItem *>(item));
}

void PointTable::bringIntoSight(int row)
{
    if (const QTableWidgetItem *item = m_table->item(row, 0))
        m_table->scrollToItem(item);
}

void PointTable::showSelectedRow()
{
    bringIntoSight(selectedRow() >= 0 ? selectedRow() : m_table->currentRow());
}

void PointTable::moveCursorTo(int row)
{
    const QSignalBlocker blocker(m_table);
    m_table->setCurrentCell(row, 0, QItemSelectionModel::NoUpdate);
}

void PointTable::beginTypingIntoLastRow()
{
    m_table->clearSelection();
    moveCursorTo(rowCount() - 1);
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

void PointTable::fillRow(int row, const PointRow &contents)
{
    for (int column = 0; column < coordinates; ++column) {
        QTableWidgetItem *item = m_table->item(row, column);
        if (!PointItem::from(item)) {
            item = makeItem();
            m_table->setItem(row, column, item);
        }
        const auto axis = static_cast<std::size_t>(column);
        PointItem::from(item)->show(contents.point[axis], contents.texts[axis]);
    }
}

QTableWidgetItem *PointTable::makeItem() const
{
    auto *item = new PointItem;
    if (m_cells == Cells::ReadOnly)
        item->setFlags(item->flags() & ~Qt::ItemIsEditable);
    return item;
}
