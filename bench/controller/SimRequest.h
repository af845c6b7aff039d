#pragma once

#include "SimArguments.h"
#include "SimGuards.h"
#include "SimReply.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct SimMachine;

/// One row of a vocabulary: a pattern of words, what answers it, and what it is refused for before that.
///
/// In a pattern # is a number from 1, c# is a letter and a number of two digits or more, * is any word, ...
/// are the words that are left (none is possible); every other word stands for itself.
struct SimRequestRow {
    std::string_view pattern;
    SimReply (*answer)(SimMachine &machine, const SimArguments &arguments);
    SimGuards guards = {};
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
        SimGuards guards;
    };

    static SimReply guarded(const Row &row, SimMachine &machine, const SimArguments &arguments);

    std::vector<Row> m_rows;
};
