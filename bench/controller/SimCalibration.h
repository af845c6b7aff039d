#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// One step of a calibration. The pause comes after the step, unless it is the last.
struct SimStep {
    bool pauseAnnounced = false;
    int announcedPauseSeconds = 5;
    double pauseSeconds = 0.0;    ///< the pause that is really made; keep it below the announced one
    double durationSeconds = 5.0; ///< not used by the room calibration, whose duration is a setting
};

/// A kind of calibration and how its next run goes.
struct SimCalibrationKind {
    std::string description;
    std::vector<SimStep> steps = std::vector<SimStep>(1);
    double stallFraction = 0.0;
    double stallSeconds = 0.0;                    ///< how long the step's fraction is held at stallFraction
    std::vector<std::pair<double, double>> curve; ///< (seconds, fraction), ascending; empty: linear
    std::optional<double> errorFraction;          ///< the overall progress at which the run fails
    std::string errorText;
    double afterWorkSeconds = 1.0; ///< how long the progress stays 1 before the result is there
};

/// The calibration that the controller performs by itself: steps, pauses, progress, after-work.
class SimCalibration
{
public:
    enum class Phase { Idle, Step, Pause, AfterWork, Finished, Failed };

    std::map<std::string, SimCalibrationKind> kinds = standardKinds();

    /// Begins a run of a known kind; `roomSeconds` is the duration of each step of the room calibration.
    void start(const std::string &kind, double roomSeconds);

    /// Ends the run; the progress goes back to 0.
    void stop();

    /// Moves on. Ends in the phase Finished or Failed, which the controller answers with conclude().
    void advance(double seconds);

    /// Back to Idle; the progress that was reached stays visible.
    void conclude() { m_phase = Phase::Idle; }

    /// Takes stall, error and after-work of the kind over into its running run. A stall at a fraction that
    /// has been passed begins at once.
    void adoptTrouble(const std::string &kind);

    Phase phase() const { return m_phase; }
    const std::string &kind() const { return m_kind; }
    const std::string &errorText() const { return m_run.errorText; }

    /// From 1; 0 before the first run and after a cancelled one.
    int stepNumber() const { return m_step; }

    /// The fraction of the current step, 0 to 1.
    double stepProgress() const { return m_fraction; }

    /// (steps done + fraction) / steps.
    double progress() const;

    /// Seconds of a step (from 1) of a known kind.
    double stepDuration(const std::string &kind, int step, double roomSeconds) const;

private:
    static std::map<std::string, SimCalibrationKind> standardKinds();

    bool isMoving() const
    {
        return m_phase == Phase::Step || m_phase == Phase::Pause || m_phase == Phase::AfterWork;
    }
    double moveStep(double seconds);
    double moveAlongCurve(double seconds);
    double moveLinearly(double seconds);
    double runStepSeconds() const;
    double moveWaiting(double seconds, double duration);
    void enter(Phase phase);
    void endStep();

    Phase m_phase = Phase::Idle;
    std::string m_kind;
    SimCalibrationKind m_run; ///< as it was when the run began
    int m_step = 0;
    double m_inPhase = 0.0;
    double m_fraction = 0.0;
    double m_stallLeft = 0.0;
    double m_roomSeconds = 0.0;
};
