#include "ResultOffers.h"

#include "FitPictureWindow.h"
#include "JobReport.h"
#include "MatchingLists.h"
#include "MatchingNotices.h"
#include "ModalWindow.h"
#include "ReportHandout.h"
#include "ResultView.h"
#include "WorkProgress.h"

#include <utility>

ResultOffers::ResultOffers(const MatchingLists &lists, const ResultView &result,
                           const MatchingNotices &notices, QWidget *window)
    : QObject(window)
    , m_lists(lists)
    , m_result(result)
    , m_notices(notices)
    , m_window(window)
    , m_handout(new ReportHandout([this] { return report(); }, window))
{
}

void ResultOffers::setRoom(const RoomTrafoData &held, double scaling)
{
    m_job.before = held;
    m_job.scaling = scaling;
}

void ResultOffers::showPicture()
{
    if (m_result.isMatched())
        ModalWindow<FitPictureWindow>(m_lists.references(), *m_result.evaluation(), m_window).exec();
}

QString ResultOffers::report() const
{
    if (!m_result.isMatched())
        return {};
    JobRecord record = m_job;
    record.time = QDateTime::currentDateTime();
    record.references = m_lists.references();
    record.measured = m_lists.measured();
    record.evaluation = *m_result.evaluation();
    record.notices = m_notices.ofTheResult();
    JobReport report(std::move(record));
    return WorkProgress::doAll(report, m_window, tr("Making the report...")) ? report.text() : QString();
}
