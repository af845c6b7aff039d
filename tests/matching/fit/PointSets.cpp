#include "PointSets.h"

#include <Eigen/Geometry>

#include <algorithm>
#include <numeric>

MatchingPoints asPoints(const std::vector<double> &values)
{
    MatchingPoints points;
    for (std::size_t i = 0; i < values.size(); i += 3)
        points.push_back({values[i], values[i + 1], values[i + 2]});
    return points;
}

std::vector<double> PointSets::box(int count, double spreadMm)
{
    std::vector<double> points(3 * static_cast<std::size_t>(count));
    for (double &value : points)
        value = uniform(-0.5 * spreadMm, 0.5 * spreadMm);
    return points;
}

std::vector<double> PointSets::moved(const std::vector<double> &points, double sigmaMm)
{
    const Eigen::Quaterniond turn = Eigen::Quaterniond(noise(1), noise(1), noise(1), noise(1)).normalized();
    const Eigen::Vector3d shift(uniform(-2000, 2000), uniform(-2000, 2000), uniform(-2000, 2000));
    std::vector<double> result(points.size());
    for (std::size_t i = 0; i < points.size(); i += 3) {
        const Eigen::Vector3d p = turn * Eigen::Vector3d(points[i], points[i + 1], points[i + 2]) + shift;
        for (int axis = 0; axis < 3; ++axis)
            result[i + static_cast<std::size_t>(axis)] = p(axis) + noise(sigmaMm);
    }
    return result;
}

std::vector<double> PointSets::shuffled(const std::vector<double> &points)
{
    std::vector<std::size_t> order(points.size() / 3);
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::shuffle(order.begin(), order.end(), m_random);
    std::vector<double> result;
    for (const std::size_t i : order)
        result.insert(result.end(), points.begin() + static_cast<std::ptrdiff_t>(3 * i),
                      points.begin() + static_cast<std::ptrdiff_t>(3 * i + 3));
    return result;
}
