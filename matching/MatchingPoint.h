#pragma once

#include <array>
#include <vector>

/// A point x, y, z in millimetres.
using MatchingPoint = std::array<double, 3>;

/// Points one after the other, without gaps: `points.front().data()` is the point array of trafo3d.h.
using MatchingPoints = std::vector<MatchingPoint>;
