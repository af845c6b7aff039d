#include "SimCalibration.h"

#include <algorithm>
#include <cstddef>

namespace
{

constexpr double still = -1.0;

// Sums of equal time steps count as what they were meant to be.
constexpr double rounding = 1e-9;

double onCurve(const std::vector<std::pair<double, double>> &curve, double seconds)
{
    std::pair<double, double> before(0.0, 0.0);
    for (const auto &point : curve) {
        if (seconds < point.first) {
            const double part = (seconds - before.first) / (point.first - before.first);
            return before.second + part * (point.second - before.second);
        }
        before = point;
    }
    return before.second;
}

} // namespace

std::map<std::string, SimCalibrationKind> SimCalibration::standardKinds()
{
    SimCalibrationKind room;
    room.description = "room calibration";
    SimCalibrationKind reflexScan;
    reflexScan.description = "reflex scan";
    return {{"room", room}, {"reflex_scan", reflexScan}};
}

void SimCalibration::start(const std::string &kind, double roomSeconds)
{
    m_kind = kind;
    m_run = kinds.at(kind);
    m_roomSeconds = roomSeconds;
    m_stallLeft = m_run.stallSeconds;
    m_step = 1;
    m_fraction = 0.0;
    enter(Phase::Step);
}

void SimCalibration::stop()
{
    m_phase = Phase::Idle;
    m_step = 0;
    m_fraction = 0.0;
}

void SimCalibration::advance(double seconds)
{
    double left = seconds;
    while (left >= 0.0 && isMoving()) {
        if (m_phase == Phase::Step)
            left = moveStep(left);
        else if (m_phase == Phase::Pause)
            left = moveWaiting(left, m_run.steps.at(static_cast<std::size_t>(m_step - 1)).pauseSeconds);
        else
            left = moveWaiting(left, m_run.afterWorkSeconds);
    }
}

void SimCalibration::adoptTrouble(const std::string &kind)
{
    if (!isMoving() || kind != m_kind)
        return;
    const SimCalibrationKind &wanted = kinds.at(kind);
    m_run.stallFraction = std::max(wanted.stallFraction, m_fraction);
    m_run.stallSeconds = m_stallLeft = wanted.stallSeconds;
    m_run.errorFraction = wanted.errorFraction;
    m_run.errorText = wanted.errorText;
    m_run.afterWorkSeconds = wanted.afterWorkSeconds;
}

double SimCalibration::progress() const
{
    if (m_step == 0)
        return 0.0;
    return (m_step - 1 + m_fraction) / static_cast<double>(m_run.steps.size());
}

double SimCalibration::stepDuration(const std::string &kind, int step, double roomSeconds) const
{
    if (kind == "room")
        return roomSeconds;
    return kinds.at(kind).steps.at(static_cast<std::size_t>(step - 1)).durationSeconds;
}

// Every moving function returns the time that is left, and a negative time when it stayed in its phase.

double SimCalibration::moveStep(double seconds)
{
    const double left = m_run.curve.empty() ? moveLinearly(seconds) : moveAlongCurve(seconds);
    if (m_run.errorFraction && progress() >= *m_run.errorFraction) {
        enter(Phase::Failed);
        return still;
    }
    if (left >= 0.0)
        endStep();
    return left;
}

double SimCalibration::moveAlongCurve(double seconds)
{
    m_inPhase += seconds;
    m_fraction = std::clamp(onCurve(m_run.curve, m_inPhase), 0.0, 1.0);
    const double end = m_run.curve.back().first;
    if (m_inPhase < end - rounding)
        return still;
    m_fraction = 1.0;
    return std::max(0.0, m_inPhase - end);
}

double SimCalibration::moveLinearly(double seconds)
{
    const double duration = runStepSeconds();
    double left = seconds;
    while (true) {
        const bool stallAhead = m_stallLeft > 0.0 && m_fraction <= m_run.stallFraction;
        const double goal = stallAhead ? m_run.stallFraction : 1.0;
        const double needed = goal * duration - m_inPhase;
        if (left < needed - rounding) {
            m_inPhase += left;
            m_fraction = m_inPhase / duration;
            return still;
        }
        m_inPhase = goal * duration;
        m_fraction = goal;
        left = std::max(0.0, left - needed);
        if (!stallAhead)
            return left;
        const double held = std::min(left, m_stallLeft);
        m_stallLeft -= held;
        left -= held;
        if (m_stallLeft > 0.0)
            return still;
    }
}

double SimCalibration::runStepSeconds() const
{
    return m_kind == "room" ? m_roomSeconds
                            : m_run.steps.at(static_cast<std::size_t>(m_step - 1)).durationSeconds;
}

double SimCalibration::moveWaiting(double seconds, double duration)
{
    m_inPhase += seconds;
    if (m_inPhase < duration - rounding)
        return still;
    const double left = std::max(0.0, m_inPhase - duration);
    if (m_phase == Phase::AfterWork) {
        enter(Phase::Finished);
    } else {
        ++m_step;
        m_fraction = 0.0;
        enter(Phase::Step);
    }
    return left;
}

void SimCalibration::enter(Phase phase)
{
    m_phase = phase;
    m_inPhase = 0.0;
}

void SimCalibration::endStep()
{
    const bool last = m_step == static_cast<int>(m_run.steps.size());
    enter(last ? Phase::AfterWork : Phase::Pause);
}
