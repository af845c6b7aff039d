#pragma once

#include <Eigen/Core>

/// What tests compare with that Eigen decomposes matrices for. Compiled once for all of them: each costs the
/// compiler seconds.
namespace Decompositions
{

/// The closed form for the best fit of the columns of `moving` on those of `fixed`, as Umeyama gives it:
/// "Least-squares estimation of transformation parameters between two point patterns", IEEE PAMI 13(4), 1991.
Eigen::Matrix4d bestFit(const Eigen::Matrix3Xd &moving, const Eigen::Matrix3Xd &fixed,
                        bool withScale = false);

/// The largest first.
Eigen::Vector3d singularValues(const Eigen::Matrix3d &M);

/// The rotation R that makes the trace of R^T M largest.
Eigen::Matrix3d nearestRotation(const Eigen::Matrix3d &M);

struct PrincipalAxes {
    /// Eigenvalues, the smallest first.
    Eigen::Vector3d values;
    /// Unit eigenvectors as columns, in the same order.
    Eigen::Matrix3d axes;
};

PrincipalAxes principalAxes(const Eigen::Matrix3d &symmetric);

/// The x with the least |M x - b|, for columns that are independent.
Eigen::VectorXd leastSquares(const Eigen::MatrixXd &M, const Eigen::VectorXd &b);

} // namespace Decompositions
