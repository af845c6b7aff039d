#include "FitTrust.h"

#include "MatchingEvaluation.h"
#include "PointArithmetic.h"
#include "bsMatrix.h"
#include "trafo3d.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

constexpr std::size_t fewestForLeavingOut = 5;
constexpr double betterBy = 3.0;

/// Below this share of the largest product of inertias a set counts as a line.
constexpr double smallestDeterminant = 1e-9;

/// A symmetric matrix, row by row.
using Inertia = std::array<MatchingPoint, 3>;

MatchingPoint farthestCorner(const MatchingPoints &points, const MatchingPoint &centre)
{
    MatchingPoint corner{};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const CoordinateRange range = rangeAlong(points, axis);
        const bool upper = range.high - centre[axis] >= centre[axis] - range.low;
        corner[axis] = upper ? range.high : range.low;
    }
    return corner;
}

/// The mean of |p|^2 - p p^T about the centre: its eigenvalues are the f_k^2, its eigenvectors the principal
/// axes.
Inertia inertiaOf(const MatchingPoints &points, const MatchingPoint &centre)
{
    Inertia inertia{};
    const auto count = static_cast<double>(points.size());
    for (const MatchingPoint &point : points) {
        const MatchingPoint arm = difference(point, centre);
        const double square = squaredLength(arm);
        for (std::size_t row = 0; row < 3; ++row) {
            for (std::size_t column = 0; column < 3; ++column)
                inertia[row][column] += ((row == column ? square : 0.0) - arm[row] * arm[column]) / count;
        }
    }
    return inertia;
}

/// The sum of d_k^2 / f_k^2 over the principal axes for a point at `arm` from the centre, by the inverse J of
/// the inertia: |arm|^2 trace(J) - arm^T J arm. Missing when the points lie on a line.
std::optional<double> leverage(const Inertia &inertia, const MatchingPoint &arm)
{
    const auto &[x, y, z] = inertia;
    const Inertia adjugate = {crossProduct(y, z), crossProduct(z, x), crossProduct(x, y)};
    const double determinant = dotProduct(x, adjugate[0]);
    const double trace = x[0] + y[1] + z[2];
    if (!(determinant > smallestDeterminant * trace * trace * trace))
        return std::nullopt;
    double sum = 0.0;
    for (std::size_t axis = 0; axis < 3; ++axis)
        sum += squaredLength(arm) * adjugate[axis][axis] - arm[axis] * dotProduct(adjugate[axis], arm);
    return sum / determinant;
}

std::optional<FitTrust::Expected> expectedErrors(const MatchingPoints &references, double rmsMm)
{
    const auto count = static_cast<double>(references.size());
    const MatchingPoint centre = centreOf(references);
    FitTrust::Expected expected;
    expected.corner = farthestCorner(references, centre);
    const std::optional<double> far =
        leverage(inertiaOf(references, centre), difference(expected.corner, centre));
    if (!far)
        return std::nullopt;
    expected.centreMm = rmsMm / std::sqrt(count - 2.0);
    expected.cornerMm = expected.centreMm * std::sqrt(1.0 + *far / 3.0);
    return expected;
}

std::optional<double> rmsWithout(std::size_t pair, MatchingPoints fixed, MatchingPoints moving)
{
    fixed.erase(fixed.begin() + static_cast<std::ptrdiff_t>(pair));
    moving.erase(moving.begin() + static_cast<std::ptrdiff_t>(pair));
    std::array<double, 16> transform{};
    std::copy_n(bsMatrix::identityMatrix().data(), transform.size(), transform.begin());
    double rmsMm = 0.0;
    if (trafo3d_opttrafo(transform.data(), nullptr, fixed.front().data(), moving.front().data(),
                         static_cast<int>(fixed.size()), &rmsMm) != 0)
        return std::nullopt;
    return rmsMm;
}

std::size_t largestDistance(const std::vector<double> &distancesMm)
{
    return static_cast<std::size_t>(std::max_element(distancesMm.begin(), distancesMm.end()) -
                                    distancesMm.begin());
}

std::optional<FitTrust::WithoutWorst> leaveOut(const MatchingPoints &references,
                                               const MatchingEvaluation &evaluation)
{
    const std::size_t count = references.size();
    if (count < fewestForLeavingOut)
        return std::nullopt;
    const bool all = count <= FitTrust::mostFits;
    const std::size_t first = all ? 0 : largestDistance(evaluation.distancesMm);
    std::optional<FitTrust::WithoutWorst> worst;
    for (std::size_t pair = first; pair < (all ? count : first + 1); ++pair) {
        // A rigid motion of the measured points leaves the residual as it is, so the mapped ones serve.
        const std::optional<double> rmsMm = rmsWithout(pair, references, evaluation.mapped);
        if (rmsMm && (!worst || *rmsMm < worst->rmsMm))
            worst = FitTrust::WithoutWorst{static_cast<int>(pair), *rmsMm, false};
    }
    if (worst)
        worst->stands =
            evaluation.rmsMm >= FitTrust::smallestResidualMm && betterBy * worst->rmsMm <= evaluation.rmsMm;
    return worst;
}

} // namespace

FitTrust FitTrust::of(const MatchingPoints &references, const MatchingEvaluation &evaluation)
{
    FitTrust trust;
    if (evaluation.outcome != MatchingEvaluation::Outcome::Matched)
        return trust;
    trust.withoutWorst = leaveOut(references, evaluation);
    trust.expected = expectedErrors(references, evaluation.rmsMm);
    return trust;
}
