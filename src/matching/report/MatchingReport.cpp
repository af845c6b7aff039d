#include "MatchingReport.h"

#include "AssignmentSearch.h"
#include "MatchingEvaluation.h"

namespace
{

QString twoDecimals(double value)
{
    return QString::number(value, 'f', 2);
}

} // namespace

// NOLINTNEXTLINE(readability-function-size): the table of the outcomes
QString MatchingReport::report(const MatchingEvaluation &evaluation)
{
    using Outcome = MatchingEvaluation::Outcome;
    switch (evaluation.outcome) {
    case Outcome::NotEnoughPoints:
        return tr("Cannot evaluate the transformation : not enough points.");
    case Outcome::CountsDiffer:
        return tr(
            "Cannot evaluate the transformation : number of reference and measured points is different.");
    case Outcome::NoValidOrder:
        return tr("No valid permutation to match transformation.");
    case Outcome::StartFailed:
        return tr("Error when calculating matching transformation (trafo3d_3trafo) : %1")
            .arg(evaluation.code);
    case Outcome::RefinementFailed:
        return tr("Error when optimizing matching transformation (trafo3d_opttrafo) : %1")
            .arg(evaluation.code);
    case Outcome::TooManyPoints:
        return tr("The order of more than %1 points is not searched. Measure in the order of the table and "
                  "check \"preserve order of points\".")
            .arg(AssignmentSearch::mostPoints);
    case Outcome::Cancelled:
        return cancelled();
    case Outcome::Matched:
        return success(evaluation);
    }
    return {};
}

QString MatchingReport::success(const MatchingEvaluation &evaluation)
{
    QString text = tr("Transformation evaluation report :\nResidual error : %1").arg(evaluation.rmsMm);
    for (std::size_t i = 0; i < evaluation.mapped.size(); ++i) {
        const MatchingPoint &point = evaluation.mapped[i];
        text += tr("\n Point %1 -> %2 : (%3, %4, %5) ; distance to reference point = %6")
                    .arg(i + 1)
                    .arg(evaluation.order[i] + 1)
                    .arg(twoDecimals(point[0]), twoDecimals(point[1]), twoDecimals(point[2]),
                         twoDecimals(evaluation.distancesMm[i]));
    }
    return text + tr("\nAll values are in [mm]");
}

QString MatchingReport::noTool(ToolSurvey::Verdict verdict)
{
    using Verdict = ToolSurvey::Verdict;
    if (verdict == Verdict::NotSupported)
        return tr("This controller does not support measuring points with a measurement tool.");
    return verdict == Verdict::NotAvailable ? tr("The controller offers no measurement tool.") : QString();
}

QString MatchingReport::noData()
{
    return tr("No measurement data arrives from the controller. Check the connection, and whether the "
              "controller is tracking.");
}

QString MatchingReport::measuredOf(int measured, int references)
{
    if (measured == 0 && references == 0)
        return {};
    return tr("%1 of %2 points measured").arg(measured).arg(references);
}

QString MatchingReport::cancelled()
{
    return tr("The search for the best order of the measured points was cancelled.\nMeasure the points in "
              "the order "
              "of the table and check \"preserve order of points\".");
}

QString MatchingReport::searching()
{
    return tr("Searching for the best order of the measured points ...");
}

QString MatchingReport::tipMoved()
{
    return tr("Measurement failed :\nTip moved too much during measurement");
}

QString MatchingReport::tipMoved(double variance, double standardDeviation)
{
    return tr("Measurement failed :\nTip moved too much during measurement:\n\to Variance = %1\n\to Standard "
              "deviation "
              "= %2")
        .arg(twoDecimals(variance), twoDecimals(standardDeviation));
}

QString MatchingReport::worstRow(double distance)
{
    return tr("The distance of this point, %1 mm, is the largest and more than three times the median "
              "distance. Check "
              "it or measure it again.")
        .arg(twoDecimals(distance));
}
