#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What goes wrong with one call.
struct FaultEffect {
    bool executed = true;              ///< whether the controller gets to see it
    std::optional<int> result;         ///< the call's result, if it is not the controller's
    std::optional<std::string> answer; ///< the answer line or value, if it is not the controller's
    int delayMilliseconds = 0;
    bool runsEvents = false; ///< whether the event loop turns during the delay

    bool isTrouble() const { return !executed || result || answer; }
};

/// The faults that were asked for: each counts the calls whose text begins with its prefix, from the moment
/// it was asked for, and strikes at the k-th one, or at every one.
///
///     sim fault fail k PREFIX [code]        the k-th call returns the code (7), nothing is executed
///     sim fault done-but-fail k PREFIX      executed, but it returns failure
///     sim fault answer k PREFIX = TEXT      returns 0 with this answer line or value, nothing is executed
///     sim fault long k PREFIX n             executed, the answer has n characters
///     sim fault delay k PREFIX ms [events]  a late answer
///     sim fault disconnect [s]              every call fails with 2, no records, for ever or for s seconds
///     sim reconnect                         ends that
///     sim fault clear                       ends everything
///
/// At most 1000 are at work at a time. k is a number from 1, or the word every. A prefix may stand in double
/// quotes, an empty one means every call.
class FaultPlan
{
public:
    /// The answer to one of the lines above; nothing when it is another line. `now` is in seconds.
    std::optional<std::string> run(const std::string &line, double now);

    /// Counts one call and says what happens to it. A prefix may begin the text or the other text for it.
    FaultEffect next(const std::string &text, const std::string &otherText = std::string());

    bool isDisconnected(double now) const { return m_disconnectedUntil && now < *m_disconnectedUntil; }

    /// Disconnected until reconnect() or for that time.
    void disconnect(double now, std::optional<double> seconds);
    void reconnect() { m_disconnectedUntil.reset(); }

    void clear();

    /// The lines that are still at work, as they were asked for.
    std::vector<std::string> pending() const;

private:
    struct Fault {
        std::string line;
        bool always = false;
        int left = 0; ///< calls until it strikes
        std::string prefix;
        FaultEffect effect;
    };

    static std::optional<Fault> parse(const std::string &line);
    std::string take(const std::optional<Fault> &fault);

    std::vector<Fault> m_faults;
    std::optional<double> m_disconnectedUntil;
};
