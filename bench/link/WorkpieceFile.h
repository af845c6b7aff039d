#pragma once

#include <string>

class ControllerLink;

/// Writes the nominal points of the controller's workpiece, one line each: number x y z.
///
/// The answer is that of a control line: "sim ok", or `sim err "<reason>"`.
std::string saveWorkpiece(ControllerLink &link, const std::string &file);
