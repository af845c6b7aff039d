#include "WheelSteps.h"

namespace
{

constexpr double halfWheel = 180.0;
constexpr double wheelPositions = 361.0;

} // namespace

int WheelSteps::to(double place)
{
    const double turned = place - m_place;
    if (turned > halfWheel)
        m_place += wheelPositions;
    else if (turned < -halfWheel)
        m_place -= wheelPositions;
    const int steps = static_cast<int>(place - m_place);
    m_place = place;
    return steps;
}
