#include "TipMeasurement.h"

#include <cmath>

void TipMeasurement::start()
{
    if (m_state == State::Idle)
        m_state = State::Pending;
}

void TipMeasurement::drop()
{
    m_state = State::Idle;
}

void TipMeasurement::frame(const SimVector &reportedTip, bool tracked, const Rules &rules,
                           double framesPerSecond)
{
    if (m_state == State::Pending)
        begin(rules, framesPerSecond);
    else if (m_state == State::Running && (m_framesLeft == 0 || m_movedTooMuch))
        drop();
    if (!tracked)
        drop();
    if (m_state != State::Running)
        return;
    --m_framesLeft;
    sample(reportedTip);
    m_movedTooMuch = rules.toleranceCheck && m_count >= 2 && standardDeviation() > rules.toleranceMm;
}

void TipMeasurement::begin(const Rules &rules, double framesPerSecond)
{
    // One frame for the fence post, one for the rounding of the printed time stamps.
    constexpr int extraFrames = 2;
    *this = TipMeasurement();
    m_state = State::Running;
    m_framesLeft = static_cast<int>(std::ceil(rules.durationSeconds * framesPerSecond)) + extraFrames;
}

// Running mean and sum of squares: B. P. Welford, Technometrics 4 (1962) 419.
void TipMeasurement::sample(const SimVector &position)
{
    ++m_count;
    const SimVector before = position - m_mean;
    m_mean = m_mean + (1.0 / m_count) * before;
    const SimVector after = position - m_mean;
    m_squares += before.x * after.x + before.y * after.y + before.z * after.z;
}

double TipMeasurement::standardDeviation() const
{
    return std::sqrt(m_squares / m_count);
}
