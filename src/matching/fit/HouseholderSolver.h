#pragma once

#include <cmath>
#include <cstddef>

/// Least squares by Householder reflections for a matrix in row order or in column order.
///
/// Shapes: element (i, k) of the m x n matrix is at `elements[i * Step + k * columnStep]`, where Step is a
/// number or std::integral_constant; in column order the step of 1 is known when compiling, so that the loops
/// run over neighbours. At most largestColumnCount columns.
template <class Step>
class HouseholderSolver
{
public:
    static constexpr int largestColumnCount = 10;

    HouseholderSolver(double *elements, Step rowStep, std::ptrdiff_t columnStep, int rows, int columns)
        : m_elements(elements)
        , m_rowStep(rowStep)
        , m_columnStep(columnStep)
        , m_rows(rows)
        , m_columns(columns)
    {
    }

    /// Fills x with the solution and overwrites b and the matrix. False when a column has no row left or is
    /// exactly zero.
    [[nodiscard]] bool solve(double *x, double *b)
    {
        for (int k = 0; k < m_columns; ++k) {
            if (k >= m_rows || !reflect(k, b))
                return false;
        }
        substituteBack(x, b);
        return true;
    }

private:
    double *column(int k) { return m_elements + k * m_columnStep; }

    bool reflect(int k, double *b)
    {
        const int count = m_rows - k;
        double *pivot = column(k) + k * m_rowStep;
        const double squareSum = product(pivot, m_rowStep, pivot, m_rowStep, count);
        if (squareSum == 0.0)
            return false;
        const double length = std::sqrt(squareSum);
        const double diagonal = *pivot >= 0.0 ? -length : length;
        const double beta = 1.0 / (*pivot * diagonal - squareSum);
        m_diagonal[k] = diagonal;
        *pivot -= diagonal;
        for (int j = k + 1; j < m_columns; ++j)
            mirror(column(j) + k * m_rowStep, m_rowStep, pivot, beta, count);
        mirror(b + k, std::integral_constant<std::ptrdiff_t, 1>(), pivot, beta, count);
        return true;
    }

    template <class TargetStep>
    void mirror(double *target, TargetStep targetStep, const double *pivot, double beta, int count) const
    {
        const double factor = beta * product(pivot, m_rowStep, target, targetStep, count);
        for (std::ptrdiff_t i = 0; i < count; ++i)
            target[i * targetStep] += factor * pivot[i * m_rowStep];
    }

    /// Four running sums, so that a sum does not wait for the one before it.
    template <class LeftStep, class RightStep>
    static double product(const double *left, LeftStep leftStep, const double *right, RightStep rightStep,
                          std::ptrdiff_t count)
    {
        double sums[4] = {0.0, 0.0, 0.0, 0.0};
        std::ptrdiff_t i = 0;
        for (; i + 4 <= count; i += 4) {
            for (std::ptrdiff_t lane = 0; lane < 4; ++lane)
                sums[lane] += left[(i + lane) * leftStep] * right[(i + lane) * rightStep];
        }
        for (; i < count; ++i)
            sums[0] += left[i * leftStep] * right[i * rightStep];
        return (sums[0] + sums[1]) + (sums[2] + sums[3]);
    }

    void substituteBack(double *x, const double *b)
    {
        for (int k = m_columns - 1; k >= 0; --k) {
            double rest = b[k];
            for (int j = k + 1; j < m_columns; ++j)
                rest -= column(j)[k * m_rowStep] * x[j];
            x[k] = rest / m_diagonal[k];
        }
    }

    double *m_elements;
    Step m_rowStep;
    std::ptrdiff_t m_columnStep;
    int m_rows;
    int m_columns;
    double m_diagonal[largestColumnCount] = {};
};
