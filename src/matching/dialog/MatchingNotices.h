#pragma once

#include "MatchingPoint.h"
#include "NoticeLine.h"
#include "ToolSurvey.h"

class ListEditing;
class ReportHandout;
struct FitTrust;
struct MatchingEvaluation;

/// What the matching dialog tells in its notices: each operation is one side that has something to say.
class MatchingNotices
{
public:
    /// Both must outlive this; the label stands in the area.
    MatchingNotices(QScrollArea *area, QLabel *label);

    void tellTools(ToolSurvey::Verdict verdict);
    void tellData(bool arrives);
    /// The editing must outlive this.
    void tellEditing(const ListEditing &editing);
    /// The handout must outlive this.
    void tellHandout(const ReportHandout &handout);
    /// Of the lists alone, and at once: a search of lists that do not fit may go on for long.
    void tellPoints(const MatchingPoints &references, const MatchingPoints &measured);
    /// A residual above the tolerance is told as a misfit, unless the lists have told why they do not fit.
    void tellResult(const MatchingEvaluation &evaluation, const FitTrust &trust, double toleranceMm);
    /// There is no result: of a scaling, too, nothing is told before there is one.
    void forgetResult();

    /// What is told of the points and of the result, and of the errors to be expected, in the present
    /// language.
    [[nodiscard]] QStringList ofTheResult() const;

    /// The scaling of the room that a matching leaves in force.
    void setScaling(double scaling);

private:
    void tellScaling();

    NoticeLine m_line;
    NoticeLine::Text m_expected;
    bool m_misfitExplained = false;
    bool m_valid = false;
    double m_scaling = 1.0;
};
