#pragma once

#include "SimGeometry.h"

/// The measurement of one tool's tip, as the controller runs it: asked for, running for a number of frames,
/// ended early when the tip moves too much or the tool is lost.
class TipMeasurement
{
public:
    struct Rules {
        double durationSeconds = 1.0;
        double toleranceMm = 1.5;
        bool toleranceCheck = true;
    };

    /// Asks for a measurement from the next frame on. Nothing happens while one is pending or running.
    void start();

    void drop();

    /// The tool of the next frame, at the position that the controller reports.
    ///
    /// The frames that a measurement marks, ceil(duration * frame rate) + 2, span at least the duration and
    /// one frame. With the check on, the frame after the one in which the standard deviation (the root of the
    /// mean squared distance to the mean) of two or more positions exceeds the tolerance is not marked any
    /// more.
    void frame(const SimVector &reportedTip, bool tracked, const Rules &rules, double framesPerSecond);

    /// Whether the last frame was part of a measurement.
    bool isRunning() const { return m_state == State::Running; }

    bool isBusy() const { return m_state != State::Idle; }

private:
    enum class State { Idle, Pending, Running };

    void begin(const Rules &rules, double framesPerSecond);
    void sample(const SimVector &position);
    double standardDeviation() const;

    State m_state = State::Idle;
    int m_framesLeft = 0;
    int m_count = 0;
    SimVector m_mean;
    double m_squares = 0.0;
    bool m_movedTooMuch = false;
};
