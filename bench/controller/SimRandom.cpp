#include "SimRandom.h"

#include <cmath>

SimRandom::SimRandom(std::uint64_t seed)
    : m_engine(seed)
{
}

void SimRandom::seed(std::uint64_t value)
{
    m_engine.seed(value);
    m_hasSpare = false;
}

SimVector SimRandom::normal(double sigma)
{
    const double x = normal();
    const double y = normal();
    const double z = normal();
    return {sigma * x, sigma * y, sigma * z};
}

double SimRandom::uniform()
{
    constexpr int mantissaBits = 53;
    return (static_cast<double>(m_engine() >> (64 - mantissaBits)) + 0.5) / std::ldexp(1.0, mantissaBits);
}

// Written out (Box and Muller, Ann. Math. Stat. 29 (1958) 610), since the standard library's distribution may
// differ from one library to the next.
double SimRandom::normal()
{
    if (m_hasSpare) {
        m_hasSpare = false;
        return m_spare;
    }
    constexpr double fullTurn = 6.283185307179586;
    const double radius = std::sqrt(-2.0 * std::log(uniform()));
    const double angle = fullTurn * uniform();
    m_spare = radius * std::sin(angle);
    m_hasSpare = true;
    return radius * std::cos(angle);
}
