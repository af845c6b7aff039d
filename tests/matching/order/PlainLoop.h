#pragma once

#include "MatchingPoint.h"

#include <vector>

/// The assignment search as plain as can be: all orders in lexicographic sequence. The judge of the search.
struct PlainLoop {
    PlainLoop(const MatchingPoints &references, const MatchingPoints &measured);

    bool found = false;
    float best = -1.0F;
    std::vector<int> order;

    /// Whether another order than the kept one reaches 1.02 times its residual or that and 0.05 mm more.
    bool rivalExists = false;
};
