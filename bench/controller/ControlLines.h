#pragma once

#include "SimRequest.h"

#include <optional>
#include <vector>

struct SimButton;
struct SimPose;

// The rows of the control lines, by topic. Their patterns leave out the leading "sim".

std::vector<SimRequestRow> toolLines();
std::vector<SimRequestRow> roomLines();
std::vector<SimRequestRow> machineLines();
std::vector<SimRequestRow> calibrationLines();
std::vector<SimRequestRow> recordLines();
std::vector<SimRequestRow> questions();

namespace ControlLines
{

/// A reply for a value that is not what it should be.
SimReply expected(const char *what);

/// x y z rx ry rz, degrees.
std::optional<SimPose> pose(const SimArguments &arguments);

/// yes or no (also on, off) as the only value.
std::optional<bool> truth(const SimArguments &arguments);

/// One number within the bounds.
std::optional<double> number(const SimArguments &arguments, double smallest, double largest);

/// One whole number within the bounds.
std::optional<int> count(const SimArguments &arguments, int smallest, int largest);

/// press, release or click.
SimReply operate(SimButton &button, std::string_view action);

} // namespace ControlLines
