#include "ResultView.h"

#include "MatchingReport.h"
#include "PointNotices.h"
#include "PointTable.h"
#include "ui_AbcMatchingDialog.h"

ResultView::ResultView(Ui::AbcMatchingDialogClass &ui, PointTable &references, PointTable &measured)
    : m_ui(ui)
    , m_references(references)
    , m_measured(measured)
{
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
    showReport(MatchingReport::report(evaluation));
    m_report = [evaluation] { return MatchingReport::report(evaluation); };
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
    m_report = nullptr;
    m_ui.w_trafoText->setPlainText(text);
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
