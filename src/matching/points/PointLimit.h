#pragma once

#include <cstddef>

/// More points than this are no list that a person wants to match; a list would only make the window slow.
constexpr std::size_t largestPointCount = 100000;
