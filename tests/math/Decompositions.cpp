#include "Decompositions.h"

#include <Eigen/Dense>

namespace Decompositions
{

Eigen::Matrix4d bestFit(const Eigen::Matrix3Xd &moving, const Eigen::Matrix3Xd &fixed, bool withScale)
{
    return Eigen::umeyama(moving, fixed, withScale);
}

Eigen::Vector3d singularValues(const Eigen::Matrix3d &M)
{
    return Eigen::JacobiSVD<Eigen::Matrix3d>(M).singularValues();
}

Eigen::Matrix3d nearestRotation(const Eigen::Matrix3d &M)
{
    const Eigen::JacobiSVD<Eigen::Matrix3d> svd(M, Eigen::ComputeFullU | Eigen::ComputeFullV);
    Eigen::Matrix3d flip = Eigen::Matrix3d::Identity();
    flip(2, 2) = (svd.matrixU() * svd.matrixV().transpose()).determinant() < 0 ? -1 : 1;
    return svd.matrixU() * flip * svd.matrixV().transpose();
}

PrincipalAxes principalAxes(const Eigen::Matrix3d &symmetric)
{
    const Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> solver(symmetric);
    return {solver.eigenvalues(), solver.eigenvectors()};
}

Eigen::VectorXd leastSquares(const Eigen::MatrixXd &M, const Eigen::VectorXd &b)
{
    return M.colPivHouseholderQr().solve(b);
}

} // namespace Decompositions
