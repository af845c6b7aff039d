#include "MatchingNotices.h"

#include "FitTrust.h"
#include "ListEditing.h"
#include "MatchingEvaluation.h"
#include "MatchingReport.h"
#include "PointNotices.h"
#include "ReferenceGeometry.h"
#include "ReportHandout.h"
#include "SetHints.h"

#include <limits>

using Side = NoticeLine::Side;

MatchingNotices::MatchingNotices(QScrollArea *area, QLabel *label)
    : m_line(area, label)
{
}

void MatchingNotices::tellTools(ToolSurvey::Verdict verdict)
{
    m_line.say(Side::Tools, [verdict] { return MatchingReport::noTool(verdict); });
}

void MatchingNotices::tellData(bool arrives)
{
    m_line.say(Side::Data, arrives ? NoticeLine::Text() : &MatchingReport::noData);
}

void MatchingNotices::tellEditing(const ListEditing &editing)
{
    m_line.say(Side::Lists, [&editing] { return editing.notice(); });
}

void MatchingNotices::tellHandout(const ReportHandout &handout)
{
    m_line.say(Side::Handout, [&handout] { return handout.notice(); });
}

QStringList MatchingNotices::ofTheResult() const
{
    QStringList notices = m_line.told({Side::Points, Side::Worst, Side::Result, Side::Scaling});
    const QString expected = m_expected ? m_expected() : QString();
    if (!expected.isEmpty())
        notices << expected;
    return notices;
}

void MatchingNotices::tellPoints(const MatchingPoints &references, const MatchingPoints &measured)
{
    const SetHints hints = SetHints::of(references, measured);
    const ReferenceGeometry geometry = ReferenceGeometry::of(references);
    m_misfitExplained = hints.any();
    m_line.say(Side::Points, [hints, geometry] { return PointNotices::ofLists(hints, geometry); });
}

void MatchingNotices::tellResult(const MatchingEvaluation &evaluation, const FitTrust &trust,
                                 double toleranceMm)
{
    const double limitMm = m_misfitExplained ? std::numeric_limits<double>::infinity() : toleranceMm;
    m_line.say(Side::Result, [evaluation, limitMm] { return PointNotices::ofResult(evaluation, limitMm); });
    m_line.say(Side::Worst,
               [trust, rmsMm = evaluation.rmsMm] { return PointNotices::ofWorst(trust, rmsMm); });
    m_expected = [trust] { return PointNotices::ofExpected(trust); };
    m_line.setTip(m_expected);
    m_valid = evaluation.outcome == MatchingEvaluation::Outcome::Matched;
    tellScaling();
}

void MatchingNotices::forgetResult()
{
    tellResult(MatchingEvaluation(), FitTrust(), 0.0);
}

void MatchingNotices::setScaling(double scaling)
{
    m_scaling = scaling;
    tellScaling();
}

void MatchingNotices::tellScaling()
{
    const double scaling = m_valid ? m_scaling : 1.0;
    m_line.say(Side::Scaling, [scaling] { return PointNotices::ofScaling(scaling); });
}
