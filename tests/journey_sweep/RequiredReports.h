#pragma once

#include "SweptRun.h"

#include <QString>

#include <optional>

/// What the module must report when a call fails, written down by hand.
namespace RequiredReports
{

/// The report that must follow when calls[index] of a run without a fault returns a failure: empty when the
/// failure is silent, nothing when the call is none that the module makes.
std::optional<QString> onFailure(const std::vector<SweptCall> &calls, std::size_t index);

/// The same when the call succeeds with an answer that means nothing.
std::optional<QString> onGarbage(const std::vector<SweptCall> &calls, std::size_t index);

} // namespace RequiredReports
