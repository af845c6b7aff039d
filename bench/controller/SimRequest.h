#pragma once

#include "SimReply.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct SimMachine;

/// The changing words of a request, in their order.
struct SimArguments {
    std::vector<int> numbers;             ///< what stood for # or for c#, t#, b#, s#
    std::vector<std::string_view> words;  ///< what stood for *
    std::vector<std::string_view> values; ///< what stood for ...

    /// All values as numbers; nothing unless there are exactly `count` and every one is a number.
    std::optional<std::vector<double>> reals(std::size_t count) const;

    /// The number at that place as an index from 0 into a list of that size.
    std::optional<std::size_t> index(std::size_t place, std::size_t size) const;
};

/// What a row's request is refused for before it is looked at.
enum class SimGuard {
    None,
    Unlocked, ///< a locked configuration
    Still,    ///< a locked configuration, and measuring when strict; when not, measuring is noted
};

/// One row of a vocabulary: a pattern of words, what answers it, and what stands before it.
///
/// In a pattern # is a number from 1, c# is a letter and a number of two digits or more, * is any word, ...
/// are the words that are left (none is possible); every other word stands for itself.
struct SimRequestRow {
    std::string_view pattern;
    SimReply (*answer)(SimMachine &machine, const SimArguments &arguments);
    SimGuard guard = SimGuard::None;
};

/// Rows that are asked in their order, the first match wins.
class SimRequestTable
{
public:
    explicit SimRequestTable(const std::vector<std::vector<SimRequestRow>> &parts);

    /// Nothing when no row matches.
    std::optional<SimReply> answer(SimMachine &machine, const std::vector<std::string_view> &words) const;

private:
    struct Row {
        std::vector<std::string_view> pattern;
        SimReply (*answer)(SimMachine &machine, const SimArguments &arguments);
        SimGuard guard;
    };

    static SimReply guarded(const Row &row, SimMachine &machine, const SimArguments &arguments);

    std::vector<Row> m_rows;
};
