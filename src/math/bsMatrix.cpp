#include "bsMatrix.h"

#include "AxisSnap.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double equalityTolerance = 1e-7;
constexpr double orientationTolerance = 1e-9;

bool rotationsAgree(const bsMatrix &a, const bsMatrix &b)
{
    for (int column = 0; column < 3; ++column) {
        for (int row = 0; row < 3; ++row) {
            if (!(std::abs(a.at(row, column) - b.at(row, column)) <= orientationTolerance))
                return false;
        }
    }
    return true;
}

/// Starts from the component with the largest square, so that nothing small is divided by.
bsQuaternion quaternionByLargestDiagonal(const bsMatrix &m)
{
    const double trace = m.at(0, 0) + m.at(1, 1) + m.at(2, 2);
    const double largest = std::max({trace, m.at(0, 0), m.at(1, 1), m.at(2, 2)});
    const double xAntisymmetric = m.at(2, 1) - m.at(1, 2);
    const double yAntisymmetric = m.at(0, 2) - m.at(2, 0);
    const double zAntisymmetric = m.at(1, 0) - m.at(0, 1);
    const double xy = m.at(0, 1) + m.at(1, 0);
    const double yz = m.at(1, 2) + m.at(2, 1);
    const double zx = m.at(2, 0) + m.at(0, 2);
    bsQuaternion q;
    if (largest == trace)
        q = {xAntisymmetric, yAntisymmetric, zAntisymmetric, 1.0 + trace};
    else if (largest == m.at(0, 0))
        q = {1.0 + 2.0 * m.at(0, 0) - trace, xy, zx, xAntisymmetric};
    else if (largest == m.at(1, 1))
        q = {xy, 1.0 + 2.0 * m.at(1, 1) - trace, yz, yAntisymmetric};
    else
        q = {zx, yz, 1.0 + 2.0 * m.at(2, 2) - trace, zAntisymmetric};
    q.normalize();
    return q;
}

} // namespace

bsMatrix::bsMatrix()
{
    setIdentity();
}

const bsMatrix &bsMatrix::identityMatrix()
{
    static const bsMatrix identity;
    return identity;
}

bsMatrix bsMatrix::product(const bsMatrix &a, const bsMatrix &b)
{
    bsMatrix result;
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k)
                sum += a.at(row, k) * b.at(k, column);
            result.at(row, column) = sum;
        }
    }
    return result;
}

bsMatrix bsMatrix::fromQuaternion(const bsQuaternion &q)
{
    bsMatrix m;
    m.at(0, 0) = 1.0 - 2.0 * q.y * q.y - 2.0 * q.z * q.z;
    m.at(0, 1) = 2.0 * (q.x * q.y - q.w * q.z);
    m.at(0, 2) = 2.0 * (q.w * q.y + q.z * q.x);
    m.at(1, 0) = 2.0 * (q.w * q.z + q.x * q.y);
    m.at(1, 1) = 1.0 - 2.0 * q.x * q.x - 2.0 * q.z * q.z;
    m.at(1, 2) = 2.0 * (q.z * q.y - q.w * q.x);
    m.at(2, 0) = 2.0 * (q.z * q.x - q.w * q.y);
    m.at(2, 1) = 2.0 * (q.z * q.y + q.w * q.x);
    m.at(2, 2) = 1.0 - 2.0 * q.x * q.x - 2.0 * q.y * q.y;
    return m;
}

void bsMatrix::setIdentity()
{
    setZero();
    for (int i = 0; i < 4; ++i)
        at(i, i) = 1.0;
}

void bsMatrix::setZero()
{
    m_values.fill(0.0);
}

void bsMatrix::postMultiply(const bsMatrix &right)
{
    *this = product(*this, right);
}

bsVector bsMatrix::transformPoint(const bsVector &p) const
{
    const auto row = [&](int r) { return at(r, 0) * p.x + at(r, 1) * p.y + at(r, 2) * p.z + at(r, 3); };
    bsVector result(row(0), row(1), row(2));
    const double w = row(3);
    if (w != 0.0)
        result.divide(w);
    return result;
}

void bsMatrix::invertRigid()
{
    const bsMatrix original = *this;
    const bsVector t = original.column(3);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            at(row, column) = original.at(column, row);
        at(row, 3) = -(at(row, 0) * t.x + at(row, 1) * t.y + at(row, 2) * t.z);
        at(3, row) = 0.0;
    }
}

bsMatrix bsMatrix::transposed() const
{
    bsMatrix result;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            result.at(row, column) = at(column, row);
    }
    return result;
}

bsVector bsMatrix::column(int column) const
{
    return {at(0, column), at(1, column), at(2, column)};
}

void bsMatrix::setColumn(int column, const bsVector &v, double w)
{
    at(0, column) = v.x;
    at(1, column) = v.y;
    at(2, column) = v.z;
    at(3, column) = w;
}

bool bsMatrix::differs(const bsMatrix &other) const
{
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        if (!(equalityTolerance > std::abs(m_values[i] - other.m_values[i])))
            return true;
    }
    return false;
}

bsQuaternion bsMatrix::toQuaternion() const
{
    const double m00 = at(0, 0);
    const double m11 = at(1, 1);
    const double m22 = at(2, 2);
    const double t = m00 + m11 + m22 + 1.0;
    if (t > 0.0) {
        const double s = 0.5 / std::sqrt(t);
        return {(at(2, 1) - at(1, 2)) * s, (at(0, 2) - at(2, 0)) * s, (at(1, 0) - at(0, 1)) * s, 0.25 / s};
    }
    if (m00 > m11 && m00 > m22) {
        const double s = 0.5 / std::sqrt(1.0 + m00 - m11 - m22);
        return {0.25 / s, (at(0, 1) + at(1, 0)) * s, (at(0, 2) + at(2, 0)) * s, (at(2, 1) - at(1, 2)) * s};
    }
    if (m11 > m22) {
        const double s = 0.5 / std::sqrt(1.0 - m00 + m11 - m22);
        return {(at(0, 1) + at(1, 0)) * s, 0.25 / s, (at(1, 2) + at(2, 1)) * s, (at(0, 2) - at(2, 0)) * s};
    }
    const double t2 = m22 + (1.0 - m00 - m11);
    if (t == 0.0 && t2 == 0.0) // never divide by zero
        return halfTurnQuaternion();
    const double s = 0.5 / std::sqrt(t2);
    return {(at(0, 2) + at(2, 0)) * s, (at(1, 2) + at(2, 1)) * s, 0.25 / s, (at(1, 0) - at(0, 1)) * s};
}

bsQuaternion bsMatrix::halfTurnQuaternion() const
{
    const auto diagonalIs = [this](double x, double y, double z) {
        return at(0, 0) == x && at(1, 1) == y && at(2, 2) == z;
    };
    if (diagonalIs(1.0, -1.0, -1.0))
        return {1.0, 0.0, 0.0, 0.0};
    if (diagonalIs(-1.0, 1.0, -1.0))
        return {0.0, 1.0, 0.0, 0.0};
    if (diagonalIs(-1.0, -1.0, 1.0))
        return {0.0, 0.0, 1.0, 0.0};
    if (diagonalIs(0.0, 0.0, -1.0))
        return {0.7071, 0.7071, 0.0, 0.0};
    return {};
}

bsQuaternion bsMatrix::toOrientation() const
{
    if (!isFinite())
        return {};
    bsMatrix snapped = *this;
    snapAxisAligned(snapped);
    const bsQuaternion plain = snapped.toQuaternion();
    if (plain.isFinite() && rotationsAgree(fromQuaternion(plain), snapped))
        return plain;
    const bsQuaternion robust = quaternionByLargestDiagonal(snapped);
    return robust.isFinite() ? robust : bsQuaternion();
}

bool bsMatrix::isFinite() const
{
    return std::all_of(m_values.begin(), m_values.end(), [](double value) { return std::isfinite(value); });
}

void snapAxisAligned(bsMatrix &matrix)
{
    std::array<double, 9> values{};
    for (int i = 0; i < 9; ++i)
        values[static_cast<std::size_t>(i)] = matrix.at(i / 3, i % 3);
    snapAxisAligned(values);
    for (int i = 0; i < 9; ++i)
        matrix.at(i / 3, i % 3) = values[static_cast<std::size_t>(i)];
}
