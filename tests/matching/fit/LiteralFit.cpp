#include "LiteralFit.h"

#include "Decompositions.h"

#include <Eigen/Geometry>

#include <cmath>
#include <vector>

namespace
{

using Transform = Eigen::Matrix4d;

Eigen::Vector3d point(const double *values, int i)
{
    return {values[3 * i], values[3 * i + 1], values[3 * i + 2]};
}

Eigen::Vector3d mapped(const Transform &T, const double *B, int i)
{
    return T.topLeftCorner<3, 3>() * point(B, i) + T.topRightCorner<3, 1>();
}

double rootMeanSquare(const Transform &T, const double *A, const double *B, int N)
{
    double sum = 0.0;
    for (int i = 0; i < N; ++i)
        sum += (point(A, i) - mapped(T, B, i)).squaredNorm();
    return std::sqrt(sum / N);
}

Transform stepped(const Transform &T, const Eigen::VectorXd &p)
{
    double s[3], c[3];
    for (int i = 0; i < 3; ++i) {
        s[i] = 0.01 * p(i);
        c[i] = std::sqrt(1.0 - s[i] * s[i]);
    }
    Eigen::Matrix3d x, y, z;
    x << 1, 0, 0, 0, c[0], -s[0], 0, s[0], c[0];
    y << c[1], 0, s[1], 0, 1, 0, -s[1], 0, c[1];
    z << c[2], -s[2], 0, s[2], c[2], 0, 0, 0, 1;
    Transform result = T;
    result.topLeftCorner<3, 3>() = T.topLeftCorner<3, 3>() * (x * y * z) * (1.0 + 0.001 * p(6));
    result.topRightCorner<3, 1>() += 0.1 * p.segment<3>(3);
    return result;
}

bool frame(Eigen::Matrix3d &F, const double *P)
{
    const Eigen::Vector3d u = point(P, 1) - point(P, 0), w = point(P, 2) - point(P, 0);
    const Eigen::Vector3d n = u.cross(w);
    if (u.norm() == 0.0 || w.norm() == 0.0 || n.norm() == 0.0)
        return false;
    F.col(0) = u / u.norm();
    const Eigen::Vector3d y = (n / n.norm()).cross(F.col(0));
    if (y.norm() == 0.0)
        return false;
    F.col(1) = y / y.norm();
    F.col(2) = F.col(0).cross(F.col(1));
    return true;
}

Eigen::VectorXd solvedStep(const Transform &T, const std::vector<int> &free, const double *A, const double *B,
                           int N)
{
    Eigen::MatrixXd J(3 * N, static_cast<int>(free.size()));
    Eigen::VectorXd e(3 * N);
    for (int i = 0; i < N; ++i) {
        e.segment<3>(3 * i) = point(A, i) - mapped(T, B, i);
        for (std::size_t j = 0; j < free.size(); ++j) {
            const Transform turned = stepped(T, Eigen::VectorXd::Unit(7, free[j]));
            J.block<3, 1>(3 * i, static_cast<int>(j)) = mapped(turned, B, i) - mapped(T, B, i);
        }
    }
    const Eigen::VectorXd q = Decompositions::leastSquares(J, e);
    Eigen::VectorXd step = Eigen::VectorXd::Zero(7);
    for (std::size_t j = 0; j < free.size(); ++j)
        step(free[j]) = q(static_cast<int>(j));
    return step;
}

} // namespace

namespace LiteralFit
{

int start(double *T, const double *A3, const double *B3)
{
    Eigen::Matrix3d target, source;
    if (!frame(target, A3) || !frame(source, B3))
        return -1;
    const Eigen::Matrix3d R = target * source.transpose();
    Eigen::Map<Eigen::Matrix<double, 4, 4, Eigen::RowMajor>> out(T);
    out.setIdentity();
    out.topLeftCorner<3, 3>() = R;
    out.topRightCorner<3, 1>() = point(A3, 0) - R * point(B3, 0);
    return 0;
}

int refine(double *T, int dof, bool withScale, const double *A, const double *B, int N, double *rms)
{
    std::vector<int> free = dof < 6 ? std::vector<int>{0, 1, 3, 4, 5} : std::vector<int>{0, 1, 2, 3, 4, 5};
    if (withScale)
        free.push_back(6);
    Eigen::Map<Eigen::Matrix<double, 4, 4, Eigen::RowMajor>> inOut(T);
    Transform current = inOut, next;
    double before = rootMeanSquare(current, A, B, N), after = before;
    for (int iteration = 1; iteration <= 10; ++iteration) {
        Eigen::VectorXd step = solvedStep(current, free, A, B, N);
        bool accepted = false;
        for (int trial = 1; trial <= 10 && !accepted; ++trial) {
            next = stepped(current, step);
            after = rootMeanSquare(next, A, B, N);
            accepted = before > after || std::fabs(before - after) < 0.001;
            step *= 0.5;
        }
        if (!accepted)
            return -2;
        if (std::fabs(before - after) < 0.001) {
            inOut = next;
            *rms = after;
            return 0;
        }
        current = next;
        before = after;
    }
    return -3;
}

} // namespace LiteralFit
