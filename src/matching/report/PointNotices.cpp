#include "PointNotices.h"

#include "FitTrust.h"
#include "MatchingEvaluation.h"
#include "ReferenceGeometry.h"
#include "RoomTrafoData.h"
#include "SetHints.h"

#include <QStringList>

#include <cmath>

namespace
{

/// Half of the last decimal that the controller keeps.
constexpr double smallestScalingDifference = 0.5e-5;

QString hundredths(double millimetres)
{
    return QString::number(millimetres, 'f', 2);
}

} // namespace

QString PointNotices::ofLists(const SetHints &hints, const ReferenceGeometry &geometry)
{
    if (hints.zeroReferences > 1)
        return tr("%1 reference points are still 0 0 0. Fill them in or remove them.")
            .arg(hints.zeroReferences);
    QStringList sentences{ofSizes(hints)};
    if (hints.sameMeasured >= 0)
        sentences << tr("The measured points %1 and %2 are the same place. Measure one of them again or "
                        "remove it.")
                         .arg(hints.sameMeasured + 1)
                         .arg(hints.sameMeasuredToo + 1);
    if (hints.mirrored)
        sentences << tr("The measured points are the mirror image of the reference points. Look whether a "
                        "sign is wrong or two coordinates are exchanged.");
    if (geometry.coinciding)
        sentences << tr("Not reliable: the reference points %1 and %2 nearly coincide. Correct or remove one "
                        "of them.")
                         .arg(geometry.coinciding->first + 1)
                         .arg(geometry.coinciding->second + 1);
    sentences << ofLine(geometry);
    sentences.removeAll(QString());
    return sentences.join(QLatin1Char('\n'));
}

QString PointNotices::ofSizes(const SetHints &hints)
{
    if (hints.factor == SetHints::Factor::None)
        return {};
    const double factor = SetHints::valueOf(hints.factor);
    if (hints.larger == SetHints::Larger::References)
        return tr("The reference points lie %1 times as far apart as the measured points: are both in "
                  "millimetres?")
            .arg(factor);
    return tr("The measured points lie %1 times as far apart as the reference points: are both in "
              "millimetres?")
        .arg(factor);
}

QString PointNotices::ofLine(const ReferenceGeometry &geometry)
{
    if (geometry.nearlyOnLine)
        return tr("Not reliable: the reference points lie nearly on a line, so the rotation about it is "
                  "uncertain. Add a point beside the line.");
    if (geometry.firstThreeNearlyOnLine)
        return tr("Not reliable: the first three reference points lie on a line, or nearly so. Put three "
                  "points first that are not on a line.");
    return {};
}

QString PointNotices::ofResult(const MatchingEvaluation &evaluation, double limitMm)
{
    QStringList sentences;
    if (evaluation.rmsMm > limitMm)
        sentences << tr("The points do not fit: the residual error is above the tip tolerance of the tool, "
                        "%1 mm. Perhaps a point was measured at the wrong place, the coordinates are in "
                        "another unit, or the workpiece was moved.")
                         .arg(limitMm);
    if (evaluation.otherOrderFits)
        sentences << tr("Not reliable: another order of the measured points fits equally well; the object "
                        "may be symmetric. Measure in the order of the table and check \"preserve order of "
                        "points\".");
    if (evaluation.otherOrdersUnknown)
        sentences << tr("Not checked, since the search was cancelled: whether another order of the measured "
                        "points fits equally well.");
    return sentences.join(QLatin1Char('\n'));
}

QString PointNotices::ofWorst(const FitTrust &trust, double rmsMm)
{
    if (!trust.withoutWorst || rmsMm < FitTrust::smallestResidualMm)
        return {};
    const int point = trust.withoutWorst->pair + 1;
    const QString rest = hundredths(trust.withoutWorst->rmsMm);
    if (trust.withoutWorst->stands)
        return tr("Residual error without point %1: %2 mm. Check this point or measure it again.")
            .arg(point)
            .arg(rest);
    return tr("Residual error without point %1: %2 mm.").arg(point).arg(rest);
}

QString PointNotices::ofExpected(const FitTrust &trust)
{
    if (!trust.expected)
        return {};
    const MatchingPoint &corner = trust.expected->corner;
    return tr("Expected error: %1 mm at the centre of the reference points, %2 mm at the corner farthest "
              "from "
              "it (%3, %4, %5).")
        .arg(hundredths(trust.expected->centreMm), hundredths(trust.expected->cornerMm),
             hundredths(corner[0]), hundredths(corner[1]), hundredths(corner[2]));
}

QString PointNotices::ofScaling(double scaling)
{
    if (!std::isfinite(scaling) || std::fabs(scaling - 1.0) < smallestScalingDifference)
        return {};
    return tr("The scaling %1 of the room stays in force after \"Apply\": all positions will be scaled by "
              "it. "
              "\"Reset scaling\" on the tab \"Fine\" sets it to 1.")
        .arg(QString::number(scaling, 'f', scalingDecimals));
}
