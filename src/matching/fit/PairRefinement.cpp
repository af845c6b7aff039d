#include "PairRefinement.h"

#include "HouseholderSolver.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace
{

using UnitStep = std::integral_constant<std::ptrdiff_t, 1>;

constexpr double unitSine = 0.01;
constexpr double unitShiftMm = 0.1;
constexpr double unitScale = 0.001;

/// Sum of the products, in four running sums; `count` is a multiple of four.
double product(const double *left, const double *right, std::ptrdiff_t count)
{
    double sums[4] = {0.0, 0.0, 0.0, 0.0};
    for (std::ptrdiff_t i = 0; i < count; i += 4) {
        for (std::ptrdiff_t lane = 0; lane < 4; ++lane)
            sums[lane] += left[i + lane] * right[i + lane];
    }
    return (sums[0] + sums[1]) + (sums[2] + sums[3]);
}

double mean(const double *values, std::ptrdiff_t stride, int count)
{
    double sums[4] = {0.0, 0.0, 0.0, 0.0};
    for (std::ptrdiff_t i = 0; i < stride; i += 4) {
        for (std::ptrdiff_t lane = 0; lane < 4; ++lane)
            sums[lane] += values[i + lane];
    }
    return ((sums[0] + sums[1]) + (sums[2] + sums[3])) / count;
}

/// What a unit turn about `axis` adds to a mapped point, as a 3x3 matrix in row order.
void turnGenerator(double *generator, const double *transform, int axis)
{
    const int p = (axis + 1) % 3;
    const int q = (axis + 2) % 3;
    const double cosineLoss = std::sqrt(1.0 - unitSine * unitSine) - 1.0;
    for (int row = 0; row < 3; ++row) {
        const double *from = transform + 4 * row;
        generator[3 * row + axis] = 0.0;
        generator[3 * row + p] = cosineLoss * from[p] + unitSine * from[q];
        generator[3 * row + q] = cosineLoss * from[q] - unitSine * from[p];
    }
}

void scaleGenerator(double *generator, const double *transform)
{
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            generator[3 * row + column] = unitScale * transform[4 * row + column];
    }
}

} // namespace

PairRefinement::PairRefinement(const double *targets, const double *sources, int count)
    : m_count(count)
    , m_stride((static_cast<std::ptrdiff_t>(count) + 3) / 4 * 4)
{
    if (m_stride > fixedCount)
        m_heap = std::make_unique<double[]>(static_cast<std::size_t>(3 * m_stride * blocks));
    m_targets = m_heap ? m_heap.get() : m_fixed;
    m_sources = m_targets + 3 * m_stride;
    m_centred = m_sources + 3 * m_stride;
    m_residuals = m_centred + 3 * m_stride;
    m_columns = m_residuals + 3 * m_stride;
    load(m_targets, targets);
    load(m_sources, sources);
    centreSources();
}

void PairRefinement::load(double *block, const double *points) const
{
    for (int axis = 0; axis < 3; ++axis) {
        double *values = block + axis * m_stride;
        for (std::ptrdiff_t i = 0; i < m_count; ++i)
            values[i] = points[3 * i + axis];
        for (std::ptrdiff_t i = m_count; i < m_stride; ++i)
            values[i] = 0.0;
    }
}

/// Measured from the first point on, so that the centred coordinates of equal points are exactly zero.
void PairRefinement::centreSources()
{
    for (int axis = 0; axis < 3; ++axis) {
        const double *raw = m_sources + axis * m_stride;
        double *centred = m_centred + axis * m_stride;
        const double first = raw[0];
        for (std::ptrdiff_t i = 0; i < m_stride; ++i)
            centred[i] = i < m_count ? raw[i] - first : 0.0;
        const double shift = mean(centred, m_stride, m_count);
        m_sourceCentre[axis] = first + shift;
        for (std::ptrdiff_t i = 0; i < m_count; ++i)
            centred[i] -= shift;
    }
}

double PairRefinement::residual(const double *transform)
{
    const double *__restrict x = m_sources;
    const double *__restrict y = m_sources + m_stride;
    const double *__restrict z = m_sources + 2 * m_stride;
    for (int axis = 0; axis < 3; ++axis) {
        const double *row = transform + 4 * axis;
        const double rx = row[0], ry = row[1], rz = row[2], shift = row[3];
        const double *__restrict target = m_targets + axis * m_stride;
        double *__restrict rest = m_residuals + axis * m_stride;
        for (std::ptrdiff_t i = 0; i < m_stride; ++i)
            rest[i] = target[i] - (rx * x[i] + ry * y[i] + rz * z[i] + shift);
        for (std::ptrdiff_t i = m_count; i < m_stride; ++i)
            rest[i] = 0.0;
    }
    return std::sqrt(product(m_residuals, m_residuals, 3 * m_stride) / m_count);
}

bool PairRefinement::solveStep(double *step, const double *transform, int rotations, bool scale)
{
    const int columns = rotations + (scale ? 1 : 0);
    if (3 * static_cast<std::ptrdiff_t>(m_count) < columns + 3)
        return false;
    for (int axis = 0; axis < rotations; ++axis)
        turnGenerator(m_generators[axis], transform, axis);
    if (scale)
        scaleGenerator(m_generators[rotations], transform);
    for (int column = 0; column < columns; ++column)
        fillColumn(column, m_generators[column]);
    reduceResiduals();
    HouseholderSolver<UnitStep> solver(m_columns, UnitStep(), 3 * m_stride, static_cast<int>(3 * m_stride),
                                       columns);
    double solution[largestColumns];
    if (!solver.solve(solution, m_residuals))
        return false;
    std::fill_n(step, 7, 0.0);
    for (int axis = 0; axis < rotations; ++axis)
        step[axis] = solution[axis];
    if (scale)
        step[6] = solution[rotations];
    solveTranslation(step, solution, columns);
    return true;
}

void PairRefinement::reduceResiduals()
{
    for (int axis = 0; axis < 3; ++axis) {
        double *rest = m_residuals + axis * m_stride;
        const double centre = mean(rest, m_stride, m_count);
        m_residualCentre[axis] = centre;
        for (std::ptrdiff_t i = 0; i < m_count; ++i)
            rest[i] -= centre;
    }
}

void PairRefinement::fillColumn(int column, const double *generator)
{
    const double *__restrict x = m_centred;
    const double *__restrict y = m_centred + m_stride;
    const double *__restrict z = m_centred + 2 * m_stride;
    for (int axis = 0; axis < 3; ++axis) {
        const double gx = generator[3 * axis], gy = generator[3 * axis + 1], gz = generator[3 * axis + 2];
        double *__restrict values = m_columns + (3 * column + axis) * m_stride;
        for (std::ptrdiff_t i = 0; i < m_stride; ++i)
            values[i] = gx * x[i] + gy * y[i] + gz * z[i];
    }
}

void PairRefinement::solveTranslation(double *step, const double *solution, int columns) const
{
    for (int axis = 0; axis < 3; ++axis) {
        double rest = m_residualCentre[axis];
        for (int column = 0; column < columns; ++column) {
            const double *row = m_generators[column] + 3 * axis;
            rest -= solution[column] *
                    (row[0] * m_sourceCentre[0] + row[1] * m_sourceCentre[1] + row[2] * m_sourceCentre[2]);
        }
        step[3 + axis] = rest / unitShiftMm;
    }
}
