#include "ListEditing.h"

#include "ListReport.h"
#include "NumberText.h"
#include "ObjectWatch.h"
#include "PointFileReading.h"
#include "PointFileSaving.h"
#include "PointItem.h"
#include "PointLimit.h"
#include "ReferencePointFile.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTableWidgetItem>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace
{

/// More than anybody undoes; a bound for a host that runs for months.
constexpr int keptChanges = 1000;

} // namespace

ListEditing::ListEditing(MatchingLists &lists, QWidget *window)
    : QObject(window)
    , m_lists(lists)
    , m_questions(window)
{
    m_history.setUndoLimit(keptChanges);
}

void ListEditing::addReference()
{
    PointTable &table = m_lists.referenceTable();
    if (table.rowCount() >= static_cast<int>(largestPointCount)) {
        tell(&ListReport::tooManyPoints);
        return;
    }
    const ObjectWatch self(this);
    change(m_lists.referenceList(), table.rowCount(), 0, PointRows(1), ListChange::Points::FromCells);
    if (self)
        table.beginTypingIntoLastRow();
}

void ListEditing::removeSelectedReference()
{
    if (m_lists.referenceTable().rowCount() == 0)
        return;
    const int row = m_lists.referenceTable().selectedRow();
    if (row < 0) {
        m_questions.tellNothingIsSelected();
        return;
    }
    const ObjectWatch self(this);
    if (!m_questions.shallRemoveRow(row) || !self || row >= m_lists.referenceTable().rowCount())
        return;
    change(m_lists.referenceList(), row, 1, {}, ListChange::Points::FromCells);
}

void ListEditing::removeSelectedMeasured()
{
    const int row = m_lists.measuredTable().selectedRow();
    const ObjectWatch self(this);
    if (row < 0 || !m_questions.shallRemoveRow(row) || !self || row >= m_lists.measuredTable().rowCount())
        return;
    change(m_lists.measuredList(), row, 1, {}, ListChange::Points::AsGiven);
}

void ListEditing::clearMeasured()
{
    const ObjectWatch self(this);
    if (m_lists.measuredTable().rowCount() == 0 || !m_questions.shallRemoveAllMeasured() || !self)
        return;
    change(m_lists.measuredList(), 0, m_lists.measuredTable().rowCount(), {}, ListChange::Points::AsGiven);
}

int ListEditing::rowForMeasured(bool replaces)
{
    const int selected = replaces ? m_lists.measuredTable().selectedRow() : -1;
    const bool found = selected >= 0 && selected < static_cast<int>(m_lists.measured().size());
    return found ? selected : m_lists.measuredTable().rowCount();
}

void ListEditing::takeMeasured(const MatchingPoint &point, bool replaces)
{
    const int row = rowForMeasured(replaces);
    const bool found = row < m_lists.measuredTable().rowCount();
    change(m_lists.measuredList(), row, found ? 1 : 0, {PointRow{point, {}}}, ListChange::Points::AsGiven);
}

void ListEditing::takeReferenceCell(QTableWidgetItem &item)
{
    const int row = item.row();
    PointRow before = m_lists.referenceList().rows(row, 1).front();
    const PointItem *own = PointItem::from(&item);
    before.texts[static_cast<std::size_t>(item.column())] = own ? own->typedTextBefore() : QString();
    const QString entered = item.text();
    QString text = entered;
    const bool valid = normalizeNumberText(text);
    m_lists.referenceTable().setText(row, item.column(), text);
    if (valid)
        takeTypedRow(row, before);
    else if (!m_lists.referenceTable().isBeingEdited(&item))
        refuseNumber(entered, row, before);
    else // after the editor has handed over its text: it would not survive the window's end in a message box
        QTimer::singleShot(0, this, [this, entered, row, before] { refuseNumber(entered, row, before); });
}

void ListEditing::refuseNumber(const QString &entered, int row, const PointRow &before)
{
    const ObjectWatch self(this);
    m_questions.tellIsNoNumber(entered);
    if (self)
        takeTypedRow(row, before);
}

/// The row shows what was typed already. Where that is what it showed before, there is nothing to undo.
void ListEditing::takeTypedRow(int row, const PointRow &before)
{
    PointList &list = m_lists.referenceList();
    const bool exists = row < list.table().rowCount();
    const PointRow now = exists ? list.table().row(row) : before;
    if (!exists || (now.texts == before.texts && !list.isFiner()))
        list.takeCells();
    else
        m_history.push(new ListChange(list, row, {before}, {now}, ListChange::Points::FromCells));
    end();
}

void ListEditing::load()
{
    const ObjectWatch self(this);
    const QString name = m_questions.fileToLoad();
    if (!name.isEmpty() && self)
        loadFile(name);
}

void ListEditing::loadFile(const QString &fileName)
{
    using Result = PointFileReading::Result;
    PointFileReading reading(fileName);
    if (!m_questions.readAll(reading))
        return;
    switch (reading.result()) {
    case Result::NotOpened:
        break;
    case Result::UnknownFormat:
        m_questions.tellFormatIsUnknown();
        break;
    case Result::TooManyPoints:
        tell(&ListReport::tooManyPoints);
        break;
    case Result::Loaded:
        takeLoaded(reading.takePoints());
        break;
    }
}

void ListEditing::takeLoaded(const MatchingPoints &points)
{
    PointRows rows;
    rows.reserve(points.size());
    for (const MatchingPoint &point : points)
        rows.push_back({point, {}});
    change(m_lists.referenceList(), 0, m_lists.referenceTable().rowCount(), std::move(rows),
           ListChange::Points::AsGiven);
}

void ListEditing::save()
{
    if (m_lists.referenceTable().rowCount() == 0) {
        m_questions.tellNothingIsToSave();
        return;
    }
    const ObjectWatch self(this);
    const QString name = m_questions.fileToSave();
    if (name.isEmpty() || !self)
        return;
    const PointTable &table = m_lists.referenceTable();
    PointFileSaving saving(name, static_cast<std::size_t>(table.rowCount()),
                           [&table](std::size_t row) { return table.texts(static_cast<int>(row)); });
    if (!m_questions.saveAll(saving))
        return;
    if (saving.isSaved())
        tell(nullptr);
    else
        tell([name] { return ListReport::notSaved(ReferencePointFile::savedName(name)); });
}

void ListEditing::copyReferences()
{
    copy(m_lists.referenceTable());
}

void ListEditing::copyMeasured()
{
    copy(m_lists.measuredTable());
}

void ListEditing::copy(const PointTable &table)
{
    const int selected = table.selectedRow();
    const std::vector<PointText::Row> rows =
        selected >= 0 ? std::vector<PointText::Row>{table.texts(selected)} : table.texts();
    if (!rows.empty())
        QGuiApplication::clipboard()->setText(PointText::write(rows));
}

void ListEditing::pasteReferences()
{
    const auto present = static_cast<std::size_t>(m_lists.referenceTable().rowCount());
    const std::size_t room = largestPointCount - std::min(present, largestPointCount);
    PointText text(QGuiApplication::clipboard()->text(), room);
    const ObjectWatch self(this);
    if (!m_questions.readAll(text))
        return;
    if (text.isTooLong()) {
        tell(&ListReport::tooManyPoints);
        return;
    }
    if (!text.rows().empty())
        append(text.takeRows());
    if (self && !text.linesNotRead().empty())
        tell([lines = text.linesNotRead()] { return ListReport::notRead(lines); });
}

void ListEditing::append(PointRows rows)
{
    change(m_lists.referenceList(), m_lists.referenceTable().rowCount(), 0, std::move(rows),
           ListChange::Points::FromCells);
}

void ListEditing::undo()
{
    if (!mayChange() || !m_history.canUndo())
        return;
    m_history.undo();
    end();
}

void ListEditing::redo()
{
    if (!mayChange() || !m_history.canRedo())
        return;
    m_history.redo();
    end();
}

void ListEditing::change(PointList &list, int first, int removed, PointRows added, ListChange::Points points)
{
    m_history.push(new ListChange(list, first, list.rows(first, removed), std::move(added), points));
    end();
}

/// Whoever hears that a list has changed may destroy this.
void ListEditing::end()
{
    tell(nullptr);
    emit changed();
}

void ListEditing::tell(Notice notice)
{
    m_notice = std::move(notice);
    emit noticeChanged();
}
