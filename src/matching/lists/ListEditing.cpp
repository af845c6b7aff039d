#include "ListEditing.h"

#include "ListReport.h"
#include "NumberText.h"
#include "ObjectWatch.h"
#include "ReferencePointFile.h"

#include <QTableWidgetItem>
#include <QTimer>
#include <QWidget>

#include <utility>

ListEditing::ListEditing(MatchingLists &lists, QWidget *window)
    : QObject(window)
    , m_lists(lists)
    , m_questions(window)
{
}

void ListEditing::addReference()
{
    m_lists.addReference();
    m_lists.referenceTable().beginTypingIntoLastRow();
    emit changed();
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
    m_lists.removeReference(row);
    emit changed();
}

void ListEditing::removeSelectedMeasured()
{
    const int row = m_lists.measuredTable().selectedRow();
    const ObjectWatch self(this);
    if (row < 0 || !m_questions.shallRemoveRow(row) || !self || row >= m_lists.measuredTable().rowCount())
        return;
    m_lists.removeMeasured(row);
    emit changed();
}

void ListEditing::clearMeasured()
{
    const ObjectWatch self(this);
    if (m_lists.measuredTable().rowCount() == 0 || !m_questions.shallRemoveAllMeasured() || !self)
        return;
    m_lists.clearMeasured();
    emit changed();
}

void ListEditing::takeMeasured(const MatchingPoint &point, bool replaces)
{
    m_lists.takeMeasured(replaces ? m_lists.measuredTable().selectedRow() : -1, point);
    emit changed();
}

void ListEditing::takeReferenceCell(QTableWidgetItem &item)
{
    const QString entered = item.text();
    QString text = entered;
    const bool valid = normalizeNumberText(text);
    m_lists.referenceTable().setText(item.row(), item.column(), text);
    if (valid)
        takeReferenceCells();
    else if (!m_lists.referenceTable().isBeingEdited(&item))
        refuseNumber(entered);
    else // after the editor has handed over its text: it would not survive the window's end in a message box
        QTimer::singleShot(0, this, [this, entered] { refuseNumber(entered); });
}

void ListEditing::refuseNumber(const QString &entered)
{
    const ObjectWatch self(this);
    m_questions.tellIsNoNumber(entered);
    if (self)
        takeReferenceCells();
}

void ListEditing::takeReferenceCells()
{
    m_lists.takeReferenceCells();
    emit changed();
}

void ListEditing::load()
{
    using Result = ReferencePointFile::LoadResult;
    const ObjectWatch self(this);
    const QString name = m_questions.fileToLoad();
    if (name.isEmpty() || !self)
        return;
    MatchingPoints points;
    const Result result = ReferencePointFile::load(name, points);
    if (result == Result::UnknownFormat) {
        m_questions.tellFormatIsUnknown();
    } else if (result == Result::Loaded) {
        m_lists.setReferences(std::move(points));
        emit changed();
    }
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
    if (ReferencePointFile::save(name, m_lists.referenceTable().texts()))
        tell(nullptr);
    else
        tell([name] { return ListReport::notSaved(ReferencePointFile::savedName(name)); });
}

void ListEditing::tell(Notice notice)
{
    m_notice = std::move(notice);
    emit noticeChanged();
}
