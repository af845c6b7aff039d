#pragma once

#include "SimReply.h"

#include <optional>
#include <vector>

struct SimArguments;
struct SimMachine;

/// One thing that a request is refused for before it is looked at.
enum class SimGuard {
    KnownCalibration, ///< the first word names no kind of calibration
    Available,        ///< tracking is not available
    NotCalibrating,   ///< a calibration is running
    NotMeasuring,     ///< tracking is running
    NewCalibration,   ///< no finished calibration waits to be accepted
    Unlocked,         ///< the configuration is locked
    NotedMeasuring,   ///< measuring, when strict; when not, a request that is carried out is noted
};

/// What a row of a vocabulary is refused for, asked in this order.
using SimGuards = std::vector<SimGuard>;

namespace SimGuarding
{

/// The first refusal; nothing when the request may be looked at.
std::optional<SimReply> refusal(const SimGuards &guards, const SimMachine &machine,
                                const SimArguments &arguments);

/// Whether a request that was carried out leaves a note.
bool isNoted(const SimGuards &guards, const SimMachine &machine);

} // namespace SimGuarding
