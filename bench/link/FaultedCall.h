#pragma once

#include "FaultPlan.h"

#include <functional>
#include <optional>
#include <string>

struct LinkAnswer;

/// What the caller of a request gets.
struct FaultedAnswer {
    bool arrived = true;       ///< false when there is no answer
    std::string text;          ///< the answer line or value; a sentence on why there is none
    std::optional<int> result; ///< the call's result, if a fault decides it
};

/// One call to a controller with the faults that strike it: the only place where an effect is applied.
///
/// How a delay passes is up to who makes the call: in this program wait() passes it, for a client far away
/// its answer is kept back.
class FaultedCall
{
public:
    /// Counts a call with that text; a fault's prefix may begin the text or the other text for it. The plan
    /// must outlive the call.
    explicit FaultedCall(FaultPlan &plan, const std::string &text,
                         const std::string &otherText = std::string());

    int delayMilliseconds() const { return m_effect.delayMilliseconds; }

    /// Passes the delay: nothing happens meanwhile, unless running events were asked for.
    void wait() const;

    /// Lets `ask` send the call to the controller, unless a fault is before it, and gives what comes back.
    /// `now` is in seconds, as the plan's disconnections are.
    FaultedAnswer answer(double now, const std::function<LinkAnswer()> &ask) const;

    /// The same in one line, for who has nothing but the line: a failing result is told in it.
    std::string answerLine(double now, const std::function<LinkAnswer()> &ask) const;

private:
    FaultedAnswer undisturbed(double now, const std::function<LinkAnswer()> &ask) const;

    const FaultPlan &m_plan;
    FaultEffect m_effect;
};
