#pragma once

#include <Eigen/Dense>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

/// What the tests of the fit ask of transforms and point sets, answered by Eigen.
namespace TransformChecks
{

using Transform = std::array<double, 16>;
using Points = std::vector<double>;
using RowMatrix = Eigen::Matrix<double, 4, 4, Eigen::RowMajor>;

inline constexpr Transform identity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

inline int countOf(const Points &points)
{
    return static_cast<int>(points.size() / 3);
}

inline Eigen::Map<const Eigen::Matrix3Xd> asMatrix(const Points &points)
{
    return {points.data(), 3, static_cast<Eigen::Index>(points.size() / 3)};
}

inline double rmsOf(const Eigen::Matrix4d &T, const Points &A, const Points &B)
{
    const Eigen::Matrix3Xd mapped =
        (T.topLeftCorner<3, 3>() * asMatrix(B)).colwise() + T.topRightCorner<3, 1>().eval();
    return std::sqrt((asMatrix(A) - mapped).squaredNorm() / countOf(A));
}

inline double umeyamaRms(const Points &A, const Points &B)
{
    return rmsOf(Eigen::umeyama(asMatrix(B).eval(), asMatrix(A).eval(), false), A, B);
}

/// Second extent of a point set in units of its largest.
inline double widthOf(const Points &A)
{
    const Eigen::Matrix3Xd centred = asMatrix(A).colwise() - asMatrix(A).rowwise().mean();
    Eigen::Matrix3d moments = Eigen::Matrix3d::Zero();
    for (Eigen::Index i = 0; i < centred.cols(); ++i)
        moments += centred.col(i) * centred.col(i).transpose();
    const Eigen::Vector3d squares =
        Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d>(moments, Eigen::EigenvaluesOnly).eigenvalues();
    return std::sqrt(squares(1) / squares(2));
}

/// How far the 3x3 block is from a rotation: the largest element of RtR - I, and of the determinant minus 1.
inline double leanOf(const Transform &T)
{
    const Eigen::Matrix3d R = Eigen::Map<const RowMatrix>(T.data()).topLeftCorner<3, 3>();
    return std::max((R.transpose() * R - Eigen::Matrix3d::Identity()).cwiseAbs().maxCoeff(),
                    std::fabs(R.determinant() - 1.0));
}

} // namespace TransformChecks
