#pragma once

#include "MatchingPoint.h"

#include <random>
#include <vector>

/// Points of which x y z stand one after the other.
MatchingPoints asPoints(const std::vector<double> &values);

/// Seeded point sets for the fit and the search.
class PointSets
{
public:
    explicit PointSets(unsigned seed)
        : m_random(seed)
    {
    }

    double uniform(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(m_random);
    }
    double noise(double sigma)
    {
        return sigma > 0.0 ? std::normal_distribution<double>(0.0, sigma)(m_random) : 0.0;
    }
    int integer(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }

    /// `count` points, x y z each, within half of `spreadMm` from the origin along each axis.
    std::vector<double> box(int count, double spreadMm);

    /// The points turned and moved at random, each coordinate blurred by `sigmaMm`.
    std::vector<double> moved(const std::vector<double> &points, double sigmaMm);

    /// The points in another order.
    std::vector<double> shuffled(const std::vector<double> &points);

    std::mt19937 &generator() { return m_random; }

private:
    std::mt19937 m_random;
};
