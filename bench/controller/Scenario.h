#pragma once

#include "SimMachine.h"

#include <optional>
#include <string>
#include <vector>

/// A prepared room, controller and list of faults, as a JSON file describes them; docs/protocol.md lists the
/// keys.
struct Scenario {
    std::string title;
    std::string description;
    SimMachine machine;
    std::vector<std::string> faults; ///< fault lines, checked but not yet asked for

    /// Reads a file. What it leaves out is as in the default scene; a list that it gives replaces the default
    /// list. On failure the error names the file, the key or the line, and the reason.
    static std::optional<Scenario> load(const std::string &file, std::string *error);

    /// The same from the file's content; `name` stands for the file in the error.
    static std::optional<Scenario> parse(const std::string &json, const std::string &name,
                                         std::string *error);
};
