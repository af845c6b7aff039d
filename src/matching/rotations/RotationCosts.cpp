#include "RotationCosts.h"

#include "PointArithmetic.h"

#include <algorithm>
#include <cmath>

namespace
{

using Matrix = RotationCell::Matrix;
using Quaternion = RotationCell::Quaternion;

constexpr int turnSteps = 24;

double squaredLengths(const MatchingPoints &points)
{
    double sum = 0.0;
    for (const MatchingPoint &p : points)
        sum += squaredLength(p);
    return sum;
}

/// sum (|p|^2 - p p^T)
Matrix weightsOf(const MatchingPoints &points)
{
    Matrix weights = {};
    const double lengths = squaredLengths(points);
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            double product = 0.0;
            for (const MatchingPoint &p : points)
                product += p[row] * p[column];
            weights[3 * row + column] = (row == column ? lengths : 0.0) - product;
        }
    }
    return weights;
}

double traceOf(const Matrix &matrix)
{
    return matrix[0] + matrix[4] + matrix[8];
}

/// left^T right
Matrix transposedProduct(const Matrix &left, const Matrix &right)
{
    Matrix result;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column)
            result[3 * row + column] = left[row] * right[column] + left[3 + row] * right[3 + column] +
                                       left[6 + row] * right[6 + column];
    }
    return result;
}

/// The symmetric matrix N of q^T N q = sum a . R(q) b, M being sum a b^T.
std::array<double, 16> quaternionForm(const Matrix &m)
{
    return {m[0] + m[4] + m[8], m[7] - m[5],        m[2] - m[6],         m[3] - m[1],
            m[7] - m[5],        m[0] - m[4] - m[8], m[1] + m[3],         m[2] + m[6],
            m[2] - m[6],        m[1] + m[3],        -m[0] + m[4] - m[8], m[5] + m[7],
            m[3] - m[1],        m[2] + m[6],        m[5] + m[7],         -m[0] - m[4] + m[8]};
}

/// sum a b^T
Matrix momentsOf(const MatchingPoints &references, const MatchingPoints &measured,
                 const std::vector<int> &order)
{
    Matrix moments = {};
    for (std::size_t i = 0; i < order.size(); ++i) {
        const MatchingPoint &a = references[i], &b = at(measured, order[i]);
        for (std::size_t row = 0; row < 3; ++row) {
            for (std::size_t column = 0; column < 3; ++column)
                moments[3 * row + column] += a[row] * b[column];
        }
    }
    return moments;
}

} // namespace

RotationCosts::RotationCosts(const MatchingPoints &references, const MatchingPoints &measured)
    : m_references(references)
    , m_measured(measured)
    , m_total(squaredLengths(references) + squaredLengths(measured))
    , m_referenceWeights(weightsOf(references))
    , m_measuredWeights(weightsOf(measured))
{
}

void RotationCosts::fill(std::vector<double> &costs, const Matrix &rotation, const AllowedPairs &pairs) const
{
    const AllowedPairs::Column *columns = pairs.columns();
    const MatchingPoint *measured = m_measured.data();
    std::size_t pair = 0;
    for (int i = 0; i < count(); ++i) {
        const MatchingPoint &a = m_references[static_cast<std::size_t>(i)];
        const double x = -2.0 * (rotation[0] * a[0] + rotation[3] * a[1] + rotation[6] * a[2]);
        const double y = -2.0 * (rotation[1] * a[0] + rotation[4] * a[1] + rotation[7] * a[2]);
        const double z = -2.0 * (rotation[2] * a[0] + rotation[5] * a[1] + rotation[8] * a[2]);
        for (const std::size_t end = pairs.firstOf(i + 1); pair < end; ++pair) {
            const MatchingPoint &b = measured[columns[pair]];
            costs[pair] = x * b[0] + y * b[1] + z * b[2];
        }
    }
}

Matrix RotationCosts::turnWeights(const Matrix &rotation) const
{
    // The factor between the two keeps their mean close to the product of the roots for lists of different
    // size.
    const double reference = std::sqrt(std::max(traceOf(m_referenceWeights), 0.0));
    const double measured = std::sqrt(std::max(traceOf(m_measuredWeights), 0.0));
    Matrix weights = {};
    if (!(reference > 0.0) || !(measured > 0.0))
        return weights;
    const Matrix turned = transposedProduct(rotation, transposedProduct(m_referenceWeights, rotation));
    for (std::size_t i = 0; i < weights.size(); ++i)
        weights[i] = 0.5 * (reference / measured * m_measuredWeights[i] + measured / reference * turned[i]);
    return weights;
}

/// Power iteration with the matrix whose largest eigenvector is the best rotation, shifted so that the
/// largest eigenvalue is also the one of largest magnitude.
Quaternion RotationCosts::improved(const Quaternion &rotation, const std::vector<int> &order) const
{
    const Matrix moments = momentsOf(m_references, m_measured, order);
    const std::array<double, 16> form = quaternionForm(moments);
    double squares = 0.0;
    for (const double value : moments)
        squares += value * value;
    const double shift = std::sqrt(3.0 * squares);
    Quaternion q = rotation;
    for (int step = 0; step < turnSteps; ++step) {
        Quaternion next;
        double length = 0.0;
        for (std::size_t row = 0; row < 4; ++row) {
            next[row] = shift * q[row];
            for (std::size_t column = 0; column < 4; ++column)
                next[row] += form[4 * row + column] * q[column];
            length += next[row] * next[row];
        }
        if (!(length > 0.0))
            return rotation;
        for (std::size_t i = 0; i < 4; ++i)
            q[i] = next[i] / std::sqrt(length);
    }
    return q;
}
