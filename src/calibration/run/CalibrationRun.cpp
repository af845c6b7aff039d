#include "CalibrationRun.h"

#include "CalibrationKind.h"
#include "Percentage.h"

#include <cmath>

namespace
{

constexpr int firstStep = 1;
constexpr int secondStep = 2;

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
        return ended(CalibrationPoll::State::Done);
    if (activity == Activity::Error)
        return ended(CalibrationPoll::State::Failed);
    if (activity != Activity::Calibrating)
        return {};
    CalibrationPoll result;
    result.state = CalibrationPoll::State::Running;
    readOverall(&result);
    noteMovement(&result);
    readStep(&result);
    return isGoingOn() ? result : CalibrationPoll();
}

CalibrationPoll CalibrationRun::pollSteps()
{
    const CalibrationStep step = m_controller.activeStep();
    if (!isGoingOn())
        return {};
    if (step == CalibrationStep::None)
        return ended(CalibrationPoll::State::Done);
    if (step == CalibrationStep::Error)
        return ended(CalibrationPoll::State::Failed);
    if (step == CalibrationStep::PauseAfterFirst)
        return paused();
    if (step != CalibrationStep::First && step != CalibrationStep::Second)
        return {};
    CalibrationPoll result;
    result.state = CalibrationPoll::State::Running;
    readOverall(&result);
    readStep(&result);
    result.firstStepIsComplete = false;
    return isGoingOn() ? result : CalibrationPoll();
}

CalibrationPoll CalibrationRun::ended(CalibrationPoll::State state)
{
    m_phase = Phase::Over;
    CalibrationPoll result;
    result.state = state;
    return result;
}

CalibrationPoll CalibrationRun::paused()
{
    m_phase = Phase::Paused;
    CalibrationPoll result;
    result.state = CalibrationPoll::State::Pause;
    return result;
}

void CalibrationRun::readOverall(CalibrationPoll *poll)
{
    const std::optional<double> progress = m_controller.progress();
    if (!progress || !std::isfinite(*progress))
        return;
    poll->overallPercent = hasTwoSteps() ? Percentage::truncated(*progress) : Percentage::floored(*progress);
}

void CalibrationRun::noteMovement(CalibrationPoll *poll)
{
    if (m_kind != CalibrationKind::room || !poll->overallPercent)
        return;
    poll->hasMoved = *poll->overallPercent != m_lastPercent;
    m_lastPercent = *poll->overallPercent;
}

void CalibrationRun::readStep(CalibrationPoll *poll)
{
    if (!isGoingOn())
        return;
    const std::optional<StepProgress> progress = m_controller.stepProgress();
    poll->firstStepIsComplete = progress && progress->step == 1 && poll->overallPercent.value_or(0) == 100;
    if (!isGoingOn() || !m_controller.supports(ControllerFeature::StepDuration))
        return;
    const std::optional<double> duration = m_controller.stepDuration(m_kind, firstStep);
    if (!progress || !progress->fraction || !duration)
        return;
    const double remaining = (1.0 - *progress->fraction) * *duration;
    if (std::isfinite(remaining))
        poll->remainingSeconds = Percentage::remainingSeconds(*progress->fraction, *duration);
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
