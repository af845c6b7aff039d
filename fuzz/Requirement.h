#pragma once

#include <cstdlib>

/// Ends the program, which the fuzzer takes for a finding.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}
