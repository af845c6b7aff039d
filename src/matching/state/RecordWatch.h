#pragma once

#include <chrono>

/// Whether measurement records still arrive.
class RecordWatch
{
public:
    using Clock = std::chrono::steady_clock;

    /// The controller sends many records a second; nobody waits longer for the notice than a second and a
    /// half, of which the dialog looks every fifth of a second.
    static constexpr std::chrono::milliseconds patience{1200};

    /// A record has arrived, or the wait for the first one begins.
    void seen(Clock::time_point now) { m_last = now; }
    [[nodiscard]] bool isSilent(Clock::time_point now) const { return now - m_last > patience; }

private:
    Clock::time_point m_last;
};
