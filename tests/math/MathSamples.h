#pragma once

#include "bsMatrix.h"

#include <Eigen/Geometry>
#include <array>
#include <limits>

/// Independently computed counterparts of the math types, for the tests.
namespace MathSamples
{

constexpr double radians = 3.14159265358979323846 / 180.0;
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

inline Eigen::Quaterniond turn(double degrees, const Eigen::Vector3d &axis)
{
    return Eigen::Quaterniond(Eigen::AngleAxisd(degrees * radians, axis.normalized()));
}

inline Eigen::Matrix3d rotation(double eta, double theta, double phi)
{
    return (Eigen::AngleAxisd(eta * radians, Eigen::Vector3d::UnitX()) *
            Eigen::AngleAxisd(theta * radians, Eigen::Vector3d::UnitY()) *
            Eigen::AngleAxisd(phi * radians, Eigen::Vector3d::UnitZ()))
        .toRotationMatrix();
}

inline Eigen::Matrix4d eigen(const bsMatrix &m)
{
    return Eigen::Map<const Eigen::Matrix4d>(m.data());
}

inline bsMatrix matrix(const Eigen::Matrix3d &rotation, const Eigen::Vector3d &translation = {0.0, 0.0, 0.0})
{
    bsMatrix m;
    for (int column = 0; column < 3; ++column)
        m.setColumn(column, {rotation(0, column), rotation(1, column), rotation(2, column)}, 0.0);
    m.setColumn(3, {translation.x(), translation.y(), translation.z()}, 1.0);
    return m;
}

inline std::array<double, 9> rows(const Eigen::Matrix3d &r)
{
    return {r(0, 0), r(0, 1), r(0, 2), r(1, 0), r(1, 1), r(1, 2), r(2, 0), r(2, 1), r(2, 2)};
}

/// The largest difference of two rotations' elements.
inline double distance(const bsMatrix &m, const Eigen::Matrix3d &expected)
{
    return (eigen(m).topLeftCorner<3, 3>() - expected).cwiseAbs().maxCoeff();
}

} // namespace MathSamples
