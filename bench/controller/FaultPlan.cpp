#include "FaultPlan.h"

#include "SimAnswer.h"
#include "SimText.h"

#include <algorithm>
#include <limits>

namespace
{

constexpr int defaultCode = 7;
constexpr int longestDelay = 600000;
constexpr int longestAnswer = 100000;
constexpr std::size_t mostFaults = 1000;
constexpr std::string_view lead = "sim fault ";

/// Cuts the first word off.
std::string_view takeFirst(std::string_view &rest)
{
    const std::size_t end = std::min(rest.find(' '), rest.size());
    const std::string_view word = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return word;
}

/// Cuts the last word off, if there is another before it.
std::string_view takeLast(std::string_view &rest)
{
    const std::size_t blank = rest.rfind(' ');
    if (blank == std::string_view::npos)
        return {};
    const std::string_view word = rest.substr(blank + 1);
    rest.remove_suffix(rest.size() - blank);
    return word;
}

std::string unquoted(std::string_view text)
{
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
        return std::string(text.substr(1, text.size() - 2));
    return std::string(text);
}

// Each of these reads what stands behind k, sets the effect and leaves the prefix; false for a bad line.

bool parseFail(std::string_view &rest, FaultEffect &effect)
{
    effect.executed = false;
    effect.result = defaultCode;
    std::string_view shorter = rest;
    if (const auto code = SimText::integer(takeLast(shorter))) {
        effect.result = *code;
        rest = shorter;
    }
    return *effect.result != 0;
}

bool parseDoneButFail(std::string_view &, FaultEffect &effect)
{
    effect.result = defaultCode;
    return true;
}

bool parseAnswer(std::string_view &rest, FaultEffect &effect)
{
    const std::size_t place = rest.find(" = ");
    const bool isEmpty = place == std::string_view::npos;
    if (isEmpty && (rest.size() < 2 || rest.substr(rest.size() - 2) != " ="))
        return false;
    effect.executed = false;
    effect.result = 0;
    effect.answer = isEmpty ? std::string() : unquoted(rest.substr(place + 3));
    rest = rest.substr(0, isEmpty ? rest.size() - 2 : place);
    return true;
}

bool parseLong(std::string_view &rest, FaultEffect &effect)
{
    const auto length = SimText::integer(takeLast(rest));
    if (!length || *length < 0 || *length > longestAnswer)
        return false;
    effect.result = 0;
    effect.answer = std::string(static_cast<std::size_t>(*length), 'x');
    return true;
}

bool parseDelay(std::string_view &rest, FaultEffect &effect)
{
    std::string_view word = takeLast(rest);
    effect.runsEvents = word == "events";
    if (effect.runsEvents)
        word = takeLast(rest);
    const auto milliseconds = SimText::integer(word);
    if (!milliseconds || *milliseconds < 0 || *milliseconds > longestDelay)
        return false;
    effect.delayMilliseconds = *milliseconds;
    return true;
}

struct FaultKind {
    std::string_view name;
    bool (*parse)(std::string_view &rest, FaultEffect &effect);
};

constexpr FaultKind faultKinds[] = {{"fail", parseFail},
                                    {"done-but-fail", parseDoneButFail},
                                    {"answer", parseAnswer},
                                    {"long", parseLong},
                                    {"delay", parseDelay}};

void add(FaultEffect &sum, const FaultEffect &effect)
{
    sum.delayMilliseconds = std::max(sum.delayMilliseconds, effect.delayMilliseconds);
    sum.runsEvents = sum.runsEvents || effect.runsEvents;
    if (sum.isTrouble())
        return;
    sum.executed = effect.executed;
    sum.result = effect.result;
    sum.answer = effect.answer;
}

} // namespace

std::optional<std::string> FaultPlan::run(const std::string &line, double now)
{
    if (line == "sim reconnect") {
        reconnect();
        return SimAnswer::controlOk;
    }
    if (!SimText::startsWith(line, lead) || line == "sim fault restart")
        return std::nullopt;
    std::string_view rest = std::string_view(line).substr(lead.size());
    if (rest == "clear") {
        clear();
        return SimAnswer::controlOk;
    }
    if (takeFirst(rest) == "disconnect") {
        const auto seconds = SimText::real(rest);
        if (!rest.empty() && (!seconds || *seconds < 0.0))
            return SimAnswer::controlError("expected: seconds");
        disconnect(now, seconds);
        return SimAnswer::controlOk;
    }
    return take(parse(line));
}

std::string FaultPlan::take(const std::optional<Fault> &fault)
{
    if (!fault)
        return SimAnswer::controlError("unknown or incomplete fault");
    if (m_faults.size() >= mostFaults)
        return SimAnswer::controlError("too many faults");
    m_faults.push_back(*fault);
    return SimAnswer::controlOk;
}

std::optional<FaultPlan::Fault> FaultPlan::parse(const std::string &line)
{
    std::string_view rest = std::string_view(line).substr(lead.size());
    const std::string_view name = takeFirst(rest);
    const std::string_view times = takeFirst(rest);
    const auto *kind = std::find_if(std::begin(faultKinds), std::end(faultKinds),
                                    [name](const FaultKind &one) { return one.name == name; });
    const auto left = SimText::integer(times);
    Fault fault;
    fault.line = line;
    fault.always = times == "every";
    if (kind == std::end(faultKinds) || (!fault.always && (!left || *left < 1)) || rest.empty())
        return std::nullopt;
    fault.left = left.value_or(0);
    if (!kind->parse(rest, fault.effect) || rest.empty())
        return std::nullopt;
    fault.prefix = unquoted(rest);
    return fault;
}

FaultEffect FaultPlan::next(const std::string &text, const std::string &otherText)
{
    FaultEffect sum;
    for (Fault &fault : m_faults) {
        if (!SimText::startsWith(text, fault.prefix) && !SimText::startsWith(otherText, fault.prefix))
            continue;
        if (fault.always || --fault.left == 0)
            add(sum, fault.effect);
    }
    m_faults.erase(std::remove_if(m_faults.begin(), m_faults.end(),
                                  [](const Fault &fault) { return !fault.always && fault.left <= 0; }),
                   m_faults.end());
    return sum;
}

void FaultPlan::disconnect(double now, std::optional<double> seconds)
{
    m_disconnectedUntil = seconds ? now + *seconds : std::numeric_limits<double>::infinity();
}

void FaultPlan::clear()
{
    m_faults.clear();
    reconnect();
}

std::vector<std::string> FaultPlan::pending() const
{
    std::vector<std::string> lines;
    for (const Fault &fault : m_faults)
        lines.push_back(fault.line);
    return lines;
}
