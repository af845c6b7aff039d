#pragma once

#include "FitTrust.h"
#include "MatchingEvaluation.h"

#include <QString>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

class PointTable;

namespace Ui
{
class AbcMatchingDialogClass;
}

/// Shows what an evaluation brought: the report, and the rows that are worst.
///
/// A report of more than some hundred lines is shown from its beginning; the rest follows while the window
/// looks after its events.
class ResultView
{
public:
    /// Form and tables must outlive this.
    ResultView(Ui::AbcMatchingDialogClass &ui, PointTable &references, PointTable &measured);

    /// Forgets the last evaluation; the report stays until there is another text.
    void clear();
    void show(const MatchingEvaluation &evaluation, const FitTrust &trust);
    void showSearching();
    /// What is shown, if it is the result of an evaluation.
    [[nodiscard]] const std::optional<MatchingEvaluation> &evaluation() const { return m_evaluation; }

    [[nodiscard]] bool isMatched() const;

    void showReport(const QString &text);
    /// The text that is shown as report can be told anew in another language.
    void setReportSource(std::function<QString()> text) { m_report = std::move(text); }

    /// Tells report and marks in the present language.
    void retranslate();

private:
    void markWorstRows();
    [[nodiscard]] QString beginReport(const std::shared_ptr<const MatchingEvaluation> &evaluation);
    void goOnWithReport();

    Ui::AbcMatchingDialogClass &m_ui;
    PointTable &m_references;
    PointTable &m_measured;
    std::optional<MatchingEvaluation> m_evaluation;
    FitTrust m_trust;
    std::function<QString()> m_report;
    QTimer m_timer; ///< runs while a report is not shown to its end
    std::shared_ptr<const MatchingEvaluation> m_reported;
    int m_nextPiece = 0;
};
