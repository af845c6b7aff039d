#pragma once

#include "CalibrationAccess.h"

#include <QByteArray>

#include <optional>

/// What one look at a running calibration has brought.
struct CalibrationPoll {
    enum class State { Unchanged, Running, Done, Failed, Pause };

    State state = State::Unchanged;
    std::optional<int> overallPercent;
    /// Whether the overall progress changed since the last look; only where a standstill is worth a warning.
    std::optional<bool> hasMoved;
    std::optional<int> remainingSeconds;
    /// The first step is through and the controller goes on working.
    bool firstStepIsComplete = false;
};

/// One calibration that the controller performs: what it is asked, what its answers mean, what must be
/// remembered between them.
///
/// The order of use is prepare(), begin(), then poll() until it says Done, Failed or Pause; after a pause
/// resume(), after a failure fetchError(). A call on the command channel may let other events through, so
/// every operation bears being called while another one waits for its answer: only one asks at a time, and
/// one that finds the run ended meanwhile asks nothing more. Reads that fail change nothing and are not
/// reported. Steps count from 1.
class CalibrationRun
{
public:
    /// Without `pausesBetweenSteps` a calibration of two steps is followed as if it had one.
    CalibrationRun(const CalibrationAccess &controller, bool pausesBetweenSteps);

    /// Asks for the description, the number of steps and the pauses of this kind of calibration.
    void prepare(const QByteArray &kind);

    const QByteArray &description() const { return m_description; }
    int steps() const { return m_steps; }
    /// Seconds before the first step and between the steps; 0 for none.
    int pauseSeconds() const { return m_pauseOfFirstStep; }
    /// Seconds that the controller announces for its second step. Both pauses last as long as the first.
    int pauseOfSecondStep() const { return m_pauseOfSecondStep; }
    /// A calibration that only its end or an error ends.
    bool cannotBeInterrupted() const;

    /// Stops what the controller is doing and starts the calibration; false when the controller refuses.
    [[nodiscard]] bool begin();

    /// Nothing is asked, and the state is Unchanged, unless the run is going on and nobody else is asking.
    CalibrationPoll poll();
    void resume();
    /// The controller's sentence about its error; in a calibration of two steps tracking is started and
    /// stopped besides, which clears the error.
    QByteArray fetchError();
    /// Sends the stop command and ends the run.
    void stop();
    /// Ends the run without a word to the controller.
    void end() { m_phase = Phase::Ended; }

    bool isGoingOn() const { return m_phase == Phase::Running; }
    bool canBeStopped() const;
    /// From prepare() until end() or stop().
    bool isInUse() const { return m_phase != Phase::Idle && m_phase != Phase::Ended; }

    /// For what else is asked in the rhythm of the polls, the poll that saw the calibration's end included:
    /// false when it is nobody's turn. A turn that was taken must be given back.
    [[nodiscard]] bool takeTurn();
    /// Whether the one whose turn it is may go on asking.
    bool keepsTurn() const { return m_phase == Phase::Running || m_phase == Phase::Over; }
    void giveTurn() { m_isAsking = false; }

private:
    /// Over is a calibration whose end the controller has told; Ended is one that nobody follows any more.
    enum class Phase { Idle, Preparing, Running, Paused, Over, Ended };

    bool hasTwoSteps() const { return m_pausesBetweenSteps && m_steps == 2; }
    void askForPausesBetweenSteps();
    CalibrationPoll pollActivity();
    CalibrationPoll pollSteps();
    CalibrationPoll leave(Phase phase, CalibrationPoll::State state);
    CalibrationPoll readProgress() const;
    std::optional<StepProgress> readStep(CalibrationPoll *poll) const;
    void noteMovement(CalibrationPoll *poll);

    CalibrationAccess m_controller;
    bool m_pausesBetweenSteps;
    QByteArray m_kind;
    QByteArray m_description;
    int m_steps = 1;
    int m_pauseOfFirstStep = CalibrationAnswers::defaultPauseSeconds;
    int m_pauseOfSecondStep = CalibrationAnswers::defaultPauseSeconds;
    int m_lastPercent = 0;
    Phase m_phase = Phase::Idle;
    bool m_isAsking = false;
};
