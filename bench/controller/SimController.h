#pragma once

#include "SimMachine.h"
#include "SimRequest.h"

#include <string>
#include <vector>

/// The simulated tracking controller: one request line in, one answer line out, and the records of each
/// frame.
///
/// A line has no line break and is read and printed with a decimal point whatever the locale. Any text is a
/// safe request. The answers are
///     velmar2 ok
///     velmar2 get <parameter> <value>       (the request, a blank, the value)
///     velmar2 err <code> "<text>"
/// and never longer than a few hundred characters.
class SimController
{
public:
    /// Requests above this length are refused.
    static constexpr std::size_t longestRequest = 1000;

    explicit SimController(SimMachine machine = SimMachine());

    std::string answer(const std::string &line);

    /// Moves the time without producing a frame.
    void advance(double seconds) { m_machine.advance(seconds); }

    /// Moves the time by 1/60 s and gives the frame's records in the order of their delivery; nothing unless
    /// the controller is measuring.
    std::vector<SimRecord> frame();

    /// Seconds since the start.
    double time() const { return m_machine.state.seconds; }

    SimClock clock() const { return m_machine.state.clock; }

    /// The room and the state behind the answers, for control lines, scenarios and tests.
    SimMachine &machine() { return m_machine; }
    const SimMachine &machine() const { return m_machine; }

    /// The remarks since the last call, such as a setting that was changed while measuring.
    std::vector<std::string> takeNotes();

private:
    SimMachine m_machine;
    SimRequestTable m_requests;
};
