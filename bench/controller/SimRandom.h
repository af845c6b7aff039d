#pragma once

#include "SimGeometry.h"

#include <cstdint>
#include <random>

/// The one source of chance of a simulation: the same seed gives the same numbers on every machine.
class SimRandom
{
public:
    explicit SimRandom(std::uint64_t seed = 1);

    void seed(std::uint64_t value);

    /// Three independent normal numbers of mean 0 and the standard deviation `sigma`.
    SimVector normal(double sigma);

private:
    double uniform();
    double normal();

    std::mt19937_64 m_engine;
    double m_spare = 0.0;
    bool m_hasSpare = false;
};
