#include "ResultView.h"

#include "MatchingReport.h"
#include "PointNotices.h"
#include "PointTable.h"
#include "ui_AbcMatchingDialog.h"

#include <QTextCursor>

#include <chrono>

using namespace std::chrono_literals;

ResultView::ResultView(Ui::AbcMatchingDialogClass &ui, PointTable &references, PointTable &measured)
    : m_ui(ui)
    , m_references(references)
    , m_measured(measured)
{
    m_timer.setInterval(0ms);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { goOnWithReport(); });
}

void ResultView::clear()
{
    m_evaluation.reset();
    m_references.clearMark();
    m_measured.clearMark();
}

void ResultView::show(const MatchingEvaluation &evaluation, const FitTrust &trust)
{
    clear();
    m_evaluation = evaluation;
    m_trust = trust;
    markWorstRows();
    m_report = [this, reported = std::make_shared<const MatchingEvaluation>(evaluation)] {
        return beginReport(reported);
    };
    m_ui.w_trafoText->setPlainText(m_report());
}

bool ResultView::isMatched() const
{
    return m_evaluation && m_evaluation->outcome == MatchingEvaluation::Outcome::Matched;
}

void ResultView::showSearching()
{
    clear();
    showReport(MatchingReport::searching());
    m_report = [] { return MatchingReport::searching(); };
}

void ResultView::showReport(const QString &text)
{
    m_timer.stop();
    m_report = nullptr;
    m_ui.w_trafoText->setPlainText(text);
}

QString ResultView::beginReport(const std::shared_ptr<const MatchingEvaluation> &evaluation)
{
    m_reported = evaluation;
    m_nextPiece = 1;
    if (MatchingReport::pieceCount(*evaluation) > 1)
        m_timer.start();
    else
        m_timer.stop();
    return MatchingReport::piece(*evaluation, 0);
}

/// The cursor of the window stays where it is, and so does what is in sight.
void ResultView::goOnWithReport()
{
    QTextCursor end(m_ui.w_trafoText->document());
    end.movePosition(QTextCursor::End);
    end.insertText(MatchingReport::piece(*m_reported, m_nextPiece));
    ++m_nextPiece;
    if (m_nextPiece == MatchingReport::pieceCount(*m_reported))
        m_timer.stop();
}

void ResultView::retranslate()
{
    markWorstRows();
    if (m_report)
        m_ui.w_trafoText->setPlainText(m_report());
}

void ResultView::markWorstRows()
{
    if (!m_evaluation || m_evaluation->worstPair < 0)
        return;
    const auto worst = static_cast<std::size_t>(m_evaluation->worstPair);
    QStringList reasons{MatchingReport::worstRow(m_evaluation->distancesMm[worst]),
                        PointNotices::ofWorst(m_trust, m_evaluation->rmsMm)};
    reasons.removeAll(QString());
    const QString reason = reasons.join(QLatin1Char('\n'));
    m_references.mark(m_evaluation->worstPair, reason);
    m_measured.mark(m_evaluation->order[worst], reason);
}
