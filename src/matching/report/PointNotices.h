#pragma once

#include <QCoreApplication>
#include <QString>

struct FitTrust;
struct MatchingEvaluation;
struct ReferenceGeometry;
struct SetHints;

/// The sentences that tell what is probably wrong with the points, and why a result should not be trusted.
/// Each is empty when nothing is wrong; several sentences stand on lines of their own.
class PointNotices
{
    Q_DECLARE_TR_FUNCTIONS(PointNotices)

public:
    /// Of the lists, whatever their evaluation brings. Rows that are not filled in yet are not judged
    /// further.
    [[nodiscard]] static QString ofLists(const SetHints &hints, const ReferenceGeometry &geometry);

    /// Of a result whose residual should not be above a limit. Where the lists have told why the points do
    /// not fit, the limit is not asked for.
    [[nodiscard]] static QString ofResult(const MatchingEvaluation &evaluation, double limitMm);

    /// What the residual would be without the point that disturbs most, if there is a residual and enough
    /// points to tell.
    [[nodiscard]] static QString ofWorst(const FitTrust &trust, double rmsMm);
    /// The errors to be expected where the result is applied; empty when nothing can be said.
    [[nodiscard]] static QString ofExpected(const FitTrust &trust);

    /// That a scaling outlasts the matching; empty for 1, and for what is no number.
    [[nodiscard]] static QString ofScaling(double scaling);

private:
    [[nodiscard]] static QString ofSizes(const SetHints &hints);
    [[nodiscard]] static QString ofLine(const ReferenceGeometry &geometry);
};
