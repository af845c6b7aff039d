#pragma once

#include <cstddef>
#include <memory>

/// The arrays of one refinement: point pairs by coordinate, residuals and Jacobian columns, all in one block
/// of memory that is taken from the heap only for more than 50 pairs.
///
/// Shapes: every array holds the x of all points, then the y, then the z; each of the three is padded with
/// zeros to a multiple of four, and the padding stays zero.   Units: millimetres, and the step units of
/// trafo3d_applyparams.
///
/// The translation columns of the Jacobian are the same constant for all points. They are taken out
/// beforehand: sources and residuals are reduced to their centres, the rest is solved for rotation and scale,
/// and the translation follows from the centres. This is the same least squares solution with three columns
/// fewer.
class PairRefinement
{
public:
    PairRefinement(const double *targets, const double *sources, int count);

    /// Root mean square distance of T * source and target; keeps the residuals for solveStep().
    double residual(const double *transform);

    /// Linearises at `transform`, whose residual() must have been the last one asked for, and writes the
    /// seven values of the best step. False when the system cannot be solved.
    [[nodiscard]] bool solveStep(double *step, const double *transform, int rotations, bool scale);

private:
    static constexpr int fixedCount = 52;
    static constexpr int largestColumns = 4;
    static constexpr int blocks = 4 + largestColumns;

    void load(double *block, const double *points) const;
    void centreSources();
    void reduceResiduals();
    void fillColumn(int column, const double *generator);
    void solveTranslation(double *step, const double *solution, int columns) const;

    int m_count;
    std::ptrdiff_t m_stride;
    std::unique_ptr<double[]> m_heap;
    double *m_targets;
    double *m_sources;
    double *m_centred;
    double *m_residuals;
    double *m_columns;
    double m_sourceCentre[3];
    double m_residualCentre[3];
    double m_generators[largestColumns][9];
    double m_fixed[3 * fixedCount * blocks];
};
