#include "ControlLines.h"
#include "SimMachine.h"

#include <algorithm>
#include <cstddef>

namespace
{

using ControlLines::expected;

constexpr std::array<std::string_view, 8> kinds = {"fr", "ts", "6dcal", "6d", "6dmt2", "6dmt", "6df2", "6df"};
constexpr int mostFrames = 1000000;
constexpr int longestLine = 100000;

bool isKind(std::string_view word)
{
    return std::find(kinds.begin(), kinds.end(), word) != kinds.end();
}

/// Lets `change` work on the damage of the kind that the first word of a line names.
template <typename Change>
SimReply withDamage(SimMachine &machine, const SimArguments &arguments, Change change)
{
    if (!isKind(arguments.words.at(0)))
        return SimReply::noSuch("kind of record");
    return change(machine.recordFaults.of(std::string(arguments.words.at(0))));
}

template <int RecordFaults::Damage::*member>
SimReply forFrames(SimMachine &machine, const SimArguments &arguments)
{
    const auto frames = ControlLines::count(arguments, 0, mostFrames);
    if (!frames)
        return expected("a number of frames");
    return withDamage(machine, arguments, [&](RecordFaults::Damage &damage) {
        damage.*member = *frames;
        return SimReply::ok();
    });
}

SimReply swap(SimMachine &machine, const SimArguments &arguments)
{
    const auto frames = arguments.values.empty() ? std::optional<int>(mostFrames)
                                                 : ControlLines::count(arguments, 1, mostFrames);
    if (!isKind(arguments.words.at(0)) || !isKind(arguments.words.at(1)))
        return SimReply::noSuch("kind of record");
    if (!frames)
        return expected("a number of frames");
    machine.recordFaults.swap(std::string(arguments.words.at(0)), std::string(arguments.words.at(1)),
                              *frames);
    return SimReply::ok();
}

template <std::optional<std::size_t> RecordFaults::Damage::*member>
SimReply characters(SimMachine &machine, const SimArguments &arguments)
{
    const auto count = ControlLines::count(arguments, 0, longestLine);
    if (!count)
        return expected("a number of characters");
    return withDamage(machine, arguments, [&](RecordFaults::Damage &damage) {
        damage.*member = static_cast<std::size_t>(*count);
        return SimReply::ok();
    });
}

SimReply noBracket(SimMachine &machine, const SimArguments &arguments)
{
    return withDamage(machine, arguments, [](RecordFaults::Damage &damage) {
        damage.withoutBracket = true;
        return SimReply::ok();
    });
}

SimReply count(SimMachine &machine, const SimArguments &arguments)
{
    const auto number = ControlLines::count(arguments, -2147483647, 2147483647);
    if (!number)
        return expected("a whole number");
    return withDamage(machine, arguments, [&](RecordFaults::Damage &damage) {
        damage.count = *number;
        return SimReply::ok();
    });
}

SimReply text(SimMachine &machine, const SimArguments &arguments)
{
    return withDamage(machine, arguments, [&](RecordFaults::Damage &damage) {
        std::string line;
        for (const std::string_view word : arguments.values)
            line += (line.empty() ? "" : " ") + std::string(word);
        damage.text = line;
        return SimReply::ok();
    });
}

SimReply clear(SimMachine &machine, const SimArguments &)
{
    machine.recordFaults.clear();
    return SimReply::ok();
}

template <RecordFaults::Formats formats>
SimReply setFormats(SimMachine &machine, const SimArguments &)
{
    machine.recordFaults.formats = formats;
    return SimReply::ok();
}

} // namespace

std::vector<SimRequestRow> recordLines()
{
    return {{"record drop * ...", forFrames<&RecordFaults::Damage::dropFrames>},
            {"record repeat * ...", forFrames<&RecordFaults::Damage::repeatFrames>},
            {"record swap * * ...", swap},
            {"record cut * ...", characters<&RecordFaults::Damage::cutAfter>},
            {"record long * ...", characters<&RecordFaults::Damage::paddedLength>},
            {"record nobracket *", noBracket},
            {"record count * ...", count},
            {"record text * = ...", text},
            {"record clear", clear},
            {"record formats first", setFormats<RecordFaults::Formats::First>},
            {"record formats second", setFormats<RecordFaults::Formats::Second>},
            {"record formats both", setFormats<RecordFaults::Formats::Both>}};
}
