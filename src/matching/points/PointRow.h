#pragma once

#include "MatchingPoint.h"

#include <QString>

#include <array>
#include <vector>

/// One row of a list of points: the point in millimetres and what its cells show.
struct PointRow {
    MatchingPoint point{};
    /// A null text stands for the coordinate with two decimals.
    std::array<QString, 3> texts;
};

using PointRows = std::vector<PointRow>;
