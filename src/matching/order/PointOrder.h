#pragma once

#include <vector>

/// The order of the measured points: element i is the index of the measured point that belongs to reference
/// point i, from 0.
using PointOrder = std::vector<int>;
