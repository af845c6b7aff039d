#pragma once

#include "JobRecord.h"

#include <QObject>

class MatchingLists;
class MatchingNotices;
class QWidget;
class ReportHandout;
class ResultView;

/// What a user can have of a result: its picture, and its report as a file or in the clipboard. Without a
/// result there is nothing to have.
class ResultOffers : public QObject
{
    Q_OBJECT

public:
    /// All must outlive this, which belongs to `window`; windows stand in front of it.
    ResultOffers(const MatchingLists &lists, const ResultView &result, const MatchingNotices &notices,
                 QWidget *window);

    void showPicture();
    [[nodiscard]] ReportHandout &handout() { return *m_handout; }

    // --- What the report tells besides
    void setModuleVersion(const QString &version) { m_job.moduleVersion = version; }
    /// What the controller held before, and the scaling that stays in force.
    void setRoom(const RoomTrafoData &held, double scaling);
    /// Those of the last point.
    void setConditions(const MeasuringConditions &conditions) { m_job.conditions = conditions; }
    /// How the points that are evaluated now are put together.
    void setOrder(MatchingEvaluation::Order order) { m_job.order = order; }

private:
    /// Empty without a result, when the user cancels, and when the window is gone meanwhile.
    [[nodiscard]] QString report() const;

    const MatchingLists &m_lists;
    const ResultView &m_result;
    const MatchingNotices &m_notices;
    QWidget *m_window;
    ReportHandout *m_handout;
    JobRecord m_job; ///< what is known before it is reported
};
