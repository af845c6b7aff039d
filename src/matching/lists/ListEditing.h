#pragma once

#include "ListChange.h"
#include "ListQuestions.h"
#include "MatchingLists.h"
#include "PointText.h"

#include <QObject>
#include <QUndoStack>

#include <functional>
#include <vector>

class QTableWidgetItem;

/// What the user does to the two lists of points: the rules of adding, removing, typing, loading and saving.
/// Every change of either list, measured points too, can be undone as long as this lives.
///
/// Each operation may open windows, and the host may destroy this object while one stands; it is then not
/// touched any more. Operations that find nothing to do, or get a No, change nothing.
class ListEditing : public QObject
{
    Q_OBJECT

public:
    /// The lists must outlive this; the windows stand in front of `window`, which owns this.
    ListEditing(MatchingLists &lists, QWidget *window);

    void addReference();
    void removeSelectedReference();
    void removeSelectedMeasured();
    void clearMeasured();

    /// The row of the measured points that takeMeasured() fills, from 0.
    [[nodiscard]] int rowForMeasured(bool replaces);
    /// Replaces the selected point if `replaces` and there is one, otherwise adds the point.
    void takeMeasured(const MatchingPoint &point, bool replaces);
    /// A reference cell got another text from the user, who is told when it is no number.
    void takeReferenceCell(QTableWidgetItem &item);

    void load();
    void loadFile(const QString &fileName);
    void save();

    /// The selected row, or all rows where none is selected, go into the clipboard; see PointText.
    void copyReferences();
    void copyMeasured();
    /// The rows that the clipboard holds become the last reference points.
    void pasteReferences();

    /// A disabled table of reference points says no; then nothing can be undone, redone or dropped either.
    [[nodiscard]] bool mayChange() { return m_lists.referenceTable().isEnabled(); }
    void undo();
    void redo();

    /// What the last operation has to tell besides, in the present language; mostly nothing.
    [[nodiscard]] QString notice() const { return m_notice ? m_notice() : QString(); }

signals:
    /// A list has changed, once for each operation.
    void changed();
    void noticeChanged();

private:
    using Notice = std::function<QString()>;

    void change(PointList &list, int first, int removed, PointRows added, ListChange::Points points);
    void takeTypedRow(int row, const PointRow &before);
    void refuseNumber(const QString &entered, int row, const PointRow &before);
    void copy(const PointTable &table);
    void append(PointRows rows);
    void takeLoaded(const MatchingPoints &points);
    void end();
    void tell(Notice notice);

    MatchingLists &m_lists;
    ListQuestions m_questions;
    QUndoStack m_history;
    Notice m_notice;
};
