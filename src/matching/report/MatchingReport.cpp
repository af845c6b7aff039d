#include "MatchingReport.h"

#include "AssignmentSearch.h"
#include "MatchingEvaluation.h"

#include <algorithm>

namespace
{

constexpr std::size_t pointsOfPiece = 500;

QString twoDecimals(double value)
{
    return QString::number(value, 'f', 2);
}

} // namespace

QString MatchingReport::report(const MatchingEvaluation &evaluation)
{
    QString text;
    for (int i = 0; i < pieceCount(evaluation); ++i)
        text += piece(evaluation, i);
    return text;
}

int MatchingReport::pieceCount(const MatchingEvaluation &evaluation)
{
    const std::size_t full = (evaluation.mapped.size() + pointsOfPiece - 1) / pointsOfPiece;
    return static_cast<int>(std::max<std::size_t>(full, 1));
}

QString MatchingReport::piece(const MatchingEvaluation &evaluation, int index)
{
    if (evaluation.outcome != MatchingEvaluation::Outcome::Matched)
        return failure(evaluation);
    QString text;
    if (index == 0)
        text = tr("Transformation evaluation report :\nResidual error : %1").arg(evaluation.rmsMm);
    const std::size_t begin = static_cast<std::size_t>(index) * pointsOfPiece;
    const std::size_t end = std::min(begin + pointsOfPiece, evaluation.mapped.size());
    for (std::size_t point = begin; point < end; ++point)
        text += pointLine(evaluation, point);
    return index + 1 < pieceCount(evaluation) ? text : text + tr("\nAll values are in [mm]");
}

// NOLINTNEXTLINE(readability-function-size): the table of the outcomes
QString MatchingReport::failure(const MatchingEvaluation &evaluation)
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
        break;
    }
    return {};
}

QString MatchingReport::pointLine(const MatchingEvaluation &evaluation, std::size_t point)
{
    const MatchingPoint &mapped = evaluation.mapped[point];
    return tr("\n Point %1 -> %2 : (%3, %4, %5) ; distance to reference point = %6")
        .arg(point + 1)
        .arg(evaluation.order[point] + 1)
        .arg(twoDecimals(mapped[0]), twoDecimals(mapped[1]), twoDecimals(mapped[2]),
             twoDecimals(evaluation.distancesMm[point]));
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
