#pragma once

#include "MatchingPoint.h"
#include "PointSets.h"

#include <string>
#include <vector>

/// Kinds of reference and measured points for the comparison of the search with the plain loop.
namespace SweepFamilies
{

struct Case {
    MatchingPoints references;
    MatchingPoints measured;
};

struct Family {
    std::string name;
    Case (*make)(PointSets &sets, int count);
};

const std::vector<Family> &all();

} // namespace SweepFamilies
