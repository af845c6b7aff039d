#pragma once

#include "bsMatrix.h"
#include "bsQuaternion.h"

#include <Eigen/Geometry>

/// Independently computed counterparts of poses, for the tests.
namespace EigenView
{

constexpr double radians = 3.14159265358979323846 / 180.0;

inline Eigen::Quaterniond turn(double x, double y, double z)
{
    return Eigen::AngleAxisd(x * radians, Eigen::Vector3d::UnitX()) *
           Eigen::AngleAxisd(y * radians, Eigen::Vector3d::UnitY()) *
           Eigen::AngleAxisd(z * radians, Eigen::Vector3d::UnitZ());
}

inline Eigen::Matrix4d motion(const Eigen::Quaterniond &rotation, const Eigen::Vector3d &translation)
{
    return (Eigen::Translation3d(translation) * rotation).matrix();
}

inline Eigen::Matrix4d eigen(const bsMatrix &m)
{
    return Eigen::Map<const Eigen::Matrix4d>(m.data());
}

inline bsMatrix matrix(const Eigen::Matrix4d &m)
{
    bsMatrix result;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            result.at(row, column) = m(row, column);
    }
    return result;
}

/// OpenGL's perspective matrix with the view's field of view and planes.
inline Eigen::Matrix4d perspective(int width, int height)
{
    const double f = 1.0 / std::tan(22.5 * radians);
    const double near = 1.0;
    const double far = 100000.0;
    Eigen::Matrix4d p = Eigen::Matrix4d::Zero();
    p(0, 0) = f * height / width;
    p(1, 1) = f;
    p(2, 2) = (far + near) / (near - far);
    p(2, 3) = 2.0 * far * near / (near - far);
    p(3, 2) = -1.0;
    return p;
}

inline bool agree(const Eigen::Matrix4d &a, const Eigen::Matrix4d &b, double tolerance = 1e-9)
{
    return (a - b).cwiseAbs().maxCoeff() <= tolerance;
}

} // namespace EigenView
