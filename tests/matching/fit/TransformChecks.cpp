#include "TransformChecks.h"

#include "Decompositions.h"

#include <Eigen/LU>

#include <algorithm>
#include <cmath>

namespace TransformChecks
{

double rmsOf(const Eigen::Matrix4d &T, const Points &A, const Points &B)
{
    const Eigen::Matrix3Xd mapped =
        (T.topLeftCorner<3, 3>() * asMatrix(B)).colwise() + T.topRightCorner<3, 1>().eval();
    return std::sqrt((asMatrix(A) - mapped).squaredNorm() / countOf(A));
}

Eigen::Matrix4d umeyamaFit(const Points &A, const Points &B, bool withScale)
{
    return Decompositions::bestFit(asMatrix(B), asMatrix(A), withScale);
}

double umeyamaRms(const Points &A, const Points &B)
{
    return rmsOf(umeyamaFit(A, B, false), A, B);
}

double widthOf(const Points &A)
{
    const Eigen::Matrix3Xd centred = asMatrix(A).colwise() - asMatrix(A).rowwise().mean();
    Eigen::Matrix3d moments = Eigen::Matrix3d::Zero();
    for (Eigen::Index i = 0; i < centred.cols(); ++i)
        moments += centred.col(i) * centred.col(i).transpose();
    const Eigen::Vector3d squares = Decompositions::principalAxes(moments).values;
    return std::sqrt(squares(1) / squares(2));
}

double leanOf(const Transform &T)
{
    const Eigen::Matrix3d R = Eigen::Map<const RowMatrix>(T.data()).topLeftCorner<3, 3>();
    return std::max((R.transpose() * R - Eigen::Matrix3d::Identity()).cwiseAbs().maxCoeff(),
                    std::fabs(R.determinant() - 1.0));
}

} // namespace TransformChecks
