#include "trafo3d.h"

#include "HouseholderSolver.h"
#include "PairRefinement.h"
#include "PointArithmetic.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr int transformSize = 16;
constexpr int rigidParameters = 6;
constexpr int largestIterations = 10;
constexpr int largestTrials = 10;
constexpr double settledMm = 0.001;

struct Frame {
    MatchingPoint x, y, z;
};

bool makeUnit(MatchingPoint &a)
{
    const double length = std::sqrt(squaredLength(a));
    if (length == 0.0)
        return false;
    a = {a[0] / length, a[1] / length, a[2] / length};
    return true;
}

/// Of a triple that is collinear up to rounding the normal is noise and need not be upright on x: z is formed
/// anew, and y once more where even that left it leaning.
bool makeUpright(Frame &frame)
{
    constexpr double largestLean = 1e-12;
    frame.z = crossProduct(frame.x, frame.y);
    if (std::fabs(dotProduct(frame.x, frame.y)) <= largestLean)
        return true;
    if (!makeUnit(frame.z))
        return false;
    frame.y = crossProduct(frame.z, frame.x);
    return true;
}

MatchingPoint pointAt(const double *points, std::size_t place)
{
    const double *point = points + 3 * place;
    return {point[0], point[1], point[2]};
}

bool frameOfTriple(Frame &frame, const double *points)
{
    const MatchingPoint first = pointAt(points, 0);
    const MatchingPoint second = difference(pointAt(points, 1), first);
    const MatchingPoint third = difference(pointAt(points, 2), first);
    frame.x = second;
    if (!makeUnit(frame.x) || squaredLength(third) == 0.0)
        return false;
    frame.z = crossProduct(second, third);
    if (!makeUnit(frame.z))
        return false;
    frame.y = crossProduct(frame.z, frame.x);
    return makeUnit(frame.y) && makeUpright(frame);
}

void setRow(double *row, double x, double y, double z, const Frame &source)
{
    for (std::size_t i = 0; i < 3; ++i)
        row[i] = x * source.x[i] + y * source.y[i] + z * source.z[i];
}

/// The turns about x, y and z one after the other, row by row, from the sines in units of 0.01.
void setTurn(double *turn, const double *step)
{
    double s[3], c[3];
    for (int i = 0; i < 3; ++i) {
        s[i] = 0.01 * step[i];
        c[i] = std::sqrt(1.0 - s[i] * s[i]);
    }
    turn[0] = c[1] * c[2];
    turn[1] = -c[1] * s[2];
    turn[2] = s[1];
    turn[3] = c[0] * s[2] + s[0] * s[1] * c[2];
    turn[4] = c[0] * c[2] - s[0] * s[1] * s[2];
    turn[5] = -s[0] * c[1];
    turn[6] = s[0] * s[2] - c[0] * s[1] * c[2];
    turn[7] = s[0] * c[2] + c[0] * s[1] * s[2];
    turn[8] = c[0] * c[1];
}

void setLastRow(double *transform)
{
    transform[12] = transform[13] = transform[14] = 0.0;
    transform[15] = 1.0;
}

/// Divides the whole transform by the length of its first row and returns that length.
double takeScale(double *transform)
{
    const double scale = std::sqrt(squaredLength({transform[0], transform[1], transform[2]}));
    for (int i = 0; i < 12; ++i)
        transform[i] /= scale;
    return scale;
}

/// Halves the step until the residual falls, or rises by less than 0.001 mm. False after ten trials. A step
/// with a sine beyond 1 gives a residual that is not a number; no comparison accepts it.
bool searchAlong(PairRefinement &pairs, double *next, double *nextRms, const double *transform,
                 double lastRms, double *step)
{
    for (int trial = 1; trial <= largestTrials; ++trial) {
        trafo3d_applyparams(next, transform, step);
        *nextRms = pairs.residual(next);
        if (lastRms > *nextRms || std::fabs(lastRms - *nextRms) < settledMm)
            return true;
        for (int i = 0; i < 7; ++i)
            step[i] *= 0.5;
    }
    return false;
}

/// Linearises and steps until the residual settles. Leaves transform and the residual there, or returns the
/// code.
int refine(PairRefinement &pairs, double *transform, double *rms, int rotations, bool scale)
{
    double next[transformSize], step[7];
    double lastRms = pairs.residual(transform);
    for (int iteration = 1; iteration <= largestIterations; ++iteration) {
        if (!pairs.solveStep(step, transform, rotations, scale))
            return -1;
        if (!searchAlong(pairs, next, rms, transform, lastRms, step))
            return -2;
        std::copy_n(next, transformSize, transform);
        if (std::fabs(lastRms - *rms) < settledMm)
            return 0;
        lastRms = *rms;
    }
    return -3;
}

} // namespace

int trafo3d_3trafo(double *T_out, const double *A3, const double *B3)
{
    Frame target, source;
    if (!frameOfTriple(target, A3) || !frameOfTriple(source, B3))
        return -1;
    const MatchingPoint sourceOrigin = pointAt(B3, 0);
    for (std::size_t r = 0; r < 3; ++r) {
        double *row = T_out + 4 * r;
        setRow(row, target.x[r], target.y[r], target.z[r], source);
        row[3] = A3[r] - dotProduct({row[0], row[1], row[2]}, sourceOrigin);
    }
    setLastRow(T_out);
    return 0;
}

int trafo3d_opttrafo(double *T_inout, double *scale_out, const double *A, const double *B, int N,
                     double *rms_out)
{
    return trafo3d_opttrafo_n(T_inout, rigidParameters, scale_out, scale_out != nullptr ? 1 : 0, A, B, N,
                              rms_out);
}

int trafo3d_opttrafo_n(double *T_inout, int dof, double *scale_out, int with_scale, const double *A,
                       const double *B, int N, double *rms_out)
{
    PairRefinement pairs(A, B, std::max(N, 0));
    double transform[transformSize];
    std::copy_n(T_inout, transformSize, transform);
    double rms = 0.0;
    const int code = refine(pairs, transform, &rms, dof < rigidParameters ? 2 : 3, with_scale != 0);
    if (code != 0)
        return code;
    if (with_scale == 1 && scale_out != nullptr)
        *scale_out = takeScale(transform);
    std::copy_n(transform, transformSize, T_inout);
    *rms_out = rms;
    return 0;
}

int trafo3d_lsqsolve(double *x_out, double *b, double *M, int m, int n, double *resnorm_out)
{
    using Solver = HouseholderSolver<std::ptrdiff_t>;
    if (n > Solver::largestColumnCount)
        return -1;
    if (!Solver(M, n, 1, m, n).solve(x_out, b))
        return -2;
    double squareSum = 0.0;
    for (int i = n; i < m; ++i)
        squareSum += b[i] * b[i];
    *resnorm_out = std::sqrt(squareSum);
    return 0;
}

int trafo3d_applyparams(double *T_out, const double *T_base, const double *step)
{
    double turn[9];
    setTurn(turn, step);
    const double scale = step[6] != 0.0 ? 1.0 + 0.001 * step[6] : 1.0;
    for (int row = 0; row < 3; ++row) {
        const double *base = T_base + 4 * row;
        const double from[4] = {base[0], base[1], base[2], base[3]};
        for (int column = 0; column < 3; ++column)
            T_out[4 * row + column] =
                scale * (from[0] * turn[column] + from[1] * turn[3 + column] + from[2] * turn[6 + column]);
        T_out[4 * row + 3] = from[3] + 0.1 * step[3 + row];
    }
    for (int i = 12; i < transformSize; ++i)
        T_out[i] = T_base[i];
    return 0;
}

void trafo3d_transformpoints(double *P_out, const double *T, const double *P_in, int N)
{
    for (std::ptrdiff_t i = 0; i < N; ++i) {
        const double x = P_in[3 * i], y = P_in[3 * i + 1], z = P_in[3 * i + 2];
        for (int row = 0; row < 3; ++row) {
            const double *r = T + 4 * row;
            P_out[3 * i + row] = r[0] * x + r[1] * y + r[2] * z + r[3];
        }
    }
}
