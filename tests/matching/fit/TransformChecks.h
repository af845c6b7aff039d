#pragma once

#include <Eigen/Core>

#include <array>
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

double rmsOf(const Eigen::Matrix4d &T, const Points &A, const Points &B);

/// The closed form for the best fit of B on A.
Eigen::Matrix4d umeyamaFit(const Points &A, const Points &B, bool withScale);
double umeyamaRms(const Points &A, const Points &B);

/// Second extent of a point set in units of its largest.
double widthOf(const Points &A);

/// How far the 3x3 block is from a rotation: the largest element of RtR - I, and of the determinant minus 1.
double leanOf(const Transform &T);

} // namespace TransformChecks
