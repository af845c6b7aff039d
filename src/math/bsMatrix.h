#pragma once

#include "bsQuaternion.h"
#include "bsVector.h"

#include <array>

/// A homogeneous 4x4 matrix for column vectors: p' = M * p, translation in the last column.
///
/// Stored column by column, element (row, column) at index row + 4 * column, as OpenGL reads it. The default
/// is the identity. Rows and columns count from 0.
class bsMatrix
{
public:
    bsMatrix();

    /// One shared identity matrix.
    static const bsMatrix &identityMatrix();

    /// The product a * b.
    static bsMatrix product(const bsMatrix &a, const bsMatrix &b);

    /// The rotation of `q`, which is used as given, with translation 0.
    static bsMatrix fromQuaternion(const bsQuaternion &q);

    void setIdentity();
    void setZero();

    double &at(int row, int column) { return m_values[index(row, column)]; }
    [[nodiscard]] double at(int row, int column) const { return m_values[index(row, column)]; }

    /// The 16 elements column by column.
    [[nodiscard]] const double *data() const { return m_values.data(); }

    /// this = this * right.
    void postMultiply(const bsMatrix &right);

    /// M * (p, 1), divided by the homogeneous element unless that is 0.
    [[nodiscard]] bsVector transformPoint(const bsVector &p) const;

    /// Inverts in place. Correct only for a rotation plus a translation, which is not tested.
    void invertRigid();

    [[nodiscard]] bsMatrix transposed() const;

    /// The first three elements of a column; column 3 is the translation.
    [[nodiscard]] bsVector column(int column) const;
    void setColumn(int column, const bsVector &v, double w);

    /// True if any element is not within 1e-7 of its counterpart; NaN always differs.
    [[nodiscard]] bool differs(const bsMatrix &other) const;

    /// The quaternion of the upper 3x3, not normalised.
    ///
    /// Near half turns, where the trace is close to -1, rounding may spoil it: see toOrientation().
    [[nodiscard]] bsQuaternion toQuaternion() const;

    /// The unit quaternion of the upper 3x3 that survives half turns about any axis.
    ///
    /// Axis-aligned values are snapped first; where toQuaternion() does not lead back to the matrix within
    /// 1e-9, the largest-diagonal formula is used. A matrix with an element that is not finite gives the
    /// identity.
    /// Source: S. W. Shepperd, J. Guidance and Control 1 (1978) 223.
    [[nodiscard]] bsQuaternion toOrientation() const;

    [[nodiscard]] bool isFinite() const;

private:
    static std::size_t index(int row, int column) { return static_cast<std::size_t>(row + 4 * column); }
    [[nodiscard]] bsQuaternion halfTurnQuaternion() const;

    std::array<double, 16> m_values;
};

/// Snaps the upper 3x3 alone: see AxisSnap.h.
void snapAxisAligned(bsMatrix &matrix);
