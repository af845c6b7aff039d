#include "SimRequest.h"

#include "SimMachine.h"
#include "SimText.h"

namespace
{

constexpr std::size_t shortestNumber = 2;
constexpr std::size_t longestNumber = 4;
constexpr std::size_t mostNotes = 100;

/// What a row "set GROUP NAME ..." sets.
std::string setting(const std::vector<std::string_view> &pattern)
{
    return std::string(pattern.at(1)) + " " + std::string(pattern.at(2));
}

bool takeNumber(std::string_view digits, SimArguments &arguments)
{
    if (digits.empty() || digits.size() > longestNumber ||
        digits.find_first_not_of("0123456789") != std::string_view::npos)
        return false;
    arguments.numbers.push_back(*SimText::integer(digits));
    return true;
}

bool matchWord(std::string_view pattern, std::string_view word, SimArguments &arguments)
{
    if (pattern == "#")
        return takeNumber(word, arguments);
    if (pattern == "*") {
        arguments.words.push_back(word);
        return !word.empty();
    }
    if (pattern.size() == 2 && pattern[1] == '#')
        return word.size() > shortestNumber && word[0] == pattern[0] && takeNumber(word.substr(1), arguments);
    return pattern == word;
}

std::optional<SimArguments> match(const std::vector<std::string_view> &pattern,
                                  const std::vector<std::string_view> &words)
{
    SimArguments arguments;
    std::size_t place = 0;
    for (const std::string_view part : pattern) {
        if (part == "...") {
            arguments.values.assign(words.begin() + static_cast<std::ptrdiff_t>(place), words.end());
            return arguments;
        }
        if (place == words.size() || !matchWord(part, words[place], arguments))
            return std::nullopt;
        ++place;
    }
    if (place != words.size())
        return std::nullopt;
    return arguments;
}

} // namespace

SimRequestTable::SimRequestTable(const std::vector<std::vector<SimRequestRow>> &parts)
{
    for (const std::vector<SimRequestRow> &part : parts) {
        for (const SimRequestRow &row : part)
            m_rows.push_back({SimText::words(row.pattern), row.answer, row.guards});
    }
}

SimReply SimRequestTable::guarded(const Row &row, SimMachine &machine, const SimArguments &arguments)
{
    if (const std::optional<SimReply> refusal = SimGuarding::refusal(row.guards, machine, arguments))
        return *refusal;
    const bool isNoted = SimGuarding::isNoted(row.guards, machine);
    SimReply reply = row.answer(machine, arguments);
    if (isNoted && reply.kind == SimReply::Kind::Ok && machine.notes.size() < mostNotes)
        machine.notes.push_back(setting(row.pattern) + " was set while measuring");
    return reply;
}

std::optional<SimReply> SimRequestTable::answer(SimMachine &machine,
                                                const std::vector<std::string_view> &words) const
{
    for (const Row &row : m_rows) {
        if (const std::optional<SimArguments> arguments = match(row.pattern, words))
            return guarded(row, machine, *arguments);
    }
    return std::nullopt;
}
