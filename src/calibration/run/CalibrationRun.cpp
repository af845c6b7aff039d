#include "CalibrationRun.h"

#include "CalibrationKind.h"
#include "Percentage.h"
#include "Saturated.h"

#include <cmath>

namespace
{

constexpr int firstStep = 1;
constexpr int secondStep = 2;
constexpr int wholePercent = 100;

/// The fraction of a second is dropped; nothing when the answers give no number.
std::optional<int> remainingSeconds(double stepFraction, double durationSeconds)
{
    const double remaining = (1.0 - stepFraction) * durationSeconds;
    return std::isfinite(remaining) ? std::make_optional(saturated(remaining)) : std::nullopt;
}

} // namespace

CalibrationRun::CalibrationRun(const CalibrationAccess &controller, bool pausesBetweenSteps)
    : m_controller(controller)
    , m_pausesBetweenSteps(pausesBetweenSteps)
{
}

void CalibrationRun::prepare(const QByteArray &kind)
{
    m_phase = Phase::Preparing;
    m_kind = kind;
    m_description = m_controller.description(kind);
    m_steps = m_controller.steps(kind);
    m_pauseOfFirstStep = m_controller.announcedPause(kind, firstStep);
    if (hasTwoSteps())
        askForPausesBetweenSteps();
}

void CalibrationRun::askForPausesBetweenSteps()
{
    const std::optional<int> first = m_controller.stepPause(m_kind, firstStep);
    m_pauseOfFirstStep = first.value_or(m_pauseOfFirstStep);
    const std::optional<int> second = first ? m_controller.stepPause(m_kind, secondStep) : std::nullopt;
    m_pauseOfSecondStep = second.value_or(m_pauseOfSecondStep);
    if (!second)
        m_steps = 1;
}

bool CalibrationRun::cannotBeInterrupted() const
{
    return m_kind == CalibrationKind::reflexScan;
}

bool CalibrationRun::begin()
{
    const Activity activity = m_controller.activity();
    if (m_phase != Phase::Preparing)
        return false;
    if (activity != Activity::None && activity != Activity::Error)
        m_controller.stopTracking();
    if (m_phase != Phase::Preparing || !m_controller.start(m_kind) || m_phase != Phase::Preparing)
        return false;
    m_phase = Phase::Running;
    return true;
}

bool CalibrationRun::takeTurn()
{
    if (m_isAsking || !keepsTurn())
        return false;
    m_isAsking = true;
    return true;
}

CalibrationPoll CalibrationRun::poll()
{
    if (!isGoingOn() || !takeTurn())
        return {};
    const CalibrationPoll result = hasTwoSteps() ? pollSteps() : pollActivity();
    giveTurn();
    return result;
}

CalibrationPoll CalibrationRun::pollActivity()
{
    const Activity activity = m_controller.activity();
    if (!isGoingOn())
        return {};
    if (activity == Activity::None)
        return leave(Phase::Over, CalibrationPoll::State::Done);
    if (activity == Activity::Error)
        return leave(Phase::Over, CalibrationPoll::State::Failed);
    if (activity != Activity::Calibrating)
        return {};
    CalibrationPoll result = readProgress();
    noteMovement(&result);
    const std::optional<StepProgress> step = readStep(&result);
    result.firstStepIsComplete =
        step && step->step == firstStep && result.overallPercent.value_or(0) == wholePercent;
    return isGoingOn() ? result : CalibrationPoll();
}

CalibrationPoll CalibrationRun::pollSteps()
{
    const CalibrationStep step = m_controller.activeStep();
    if (!isGoingOn())
        return {};
    if (step == CalibrationStep::None)
        return leave(Phase::Over, CalibrationPoll::State::Done);
    if (step == CalibrationStep::Error)
        return leave(Phase::Over, CalibrationPoll::State::Failed);
    if (step == CalibrationStep::PauseAfterFirst)
        return leave(Phase::Paused, CalibrationPoll::State::Pause);
    if (step != CalibrationStep::First && step != CalibrationStep::Second)
        return {};
    CalibrationPoll result = readProgress();
    readStep(&result);
    return isGoingOn() ? result : CalibrationPoll();
}

CalibrationPoll CalibrationRun::leave(Phase phase, CalibrationPoll::State state)
{
    m_phase = phase;
    CalibrationPoll result;
    result.state = state;
    return result;
}

CalibrationPoll CalibrationRun::readProgress() const
{
    CalibrationPoll result;
    result.state = CalibrationPoll::State::Running;
    const std::optional<double> progress = m_controller.progress();
    if (progress && std::isfinite(*progress))
        result.overallPercent =
            hasTwoSteps() ? Percentage::truncated(*progress) : Percentage::floored(*progress);
    return result;
}

void CalibrationRun::noteMovement(CalibrationPoll *poll)
{
    if (m_kind != CalibrationKind::room || !poll->overallPercent)
        return;
    poll->hasMoved = *poll->overallPercent != m_lastPercent;
    m_lastPercent = *poll->overallPercent;
}

std::optional<StepProgress> CalibrationRun::readStep(CalibrationPoll *poll) const
{
    if (!isGoingOn())
        return std::nullopt;
    const std::optional<StepProgress> progress = m_controller.stepProgress();
    if (!isGoingOn() || !m_controller.supports(ControllerFeature::StepDuration))
        return progress;
    const std::optional<double> duration = m_controller.stepDuration(m_kind, firstStep);
    if (progress && progress->fraction && duration)
        poll->remainingSeconds = remainingSeconds(*progress->fraction, *duration);
    return progress;
}

void CalibrationRun::resume()
{
    if (m_phase == Phase::Paused)
        m_phase = Phase::Running;
}

QByteArray CalibrationRun::fetchError()
{
    const QByteArray error = m_controller.error();
    if (hasTwoSteps())
        m_controller.clearError();
    return error;
}

bool CalibrationRun::canBeStopped() const
{
    return !cannotBeInterrupted() && (m_phase == Phase::Running || m_phase == Phase::Paused);
}

void CalibrationRun::stop()
{
    end();
    m_controller.stop(m_kind);
}
