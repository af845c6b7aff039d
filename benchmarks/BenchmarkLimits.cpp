#include "BenchmarkLimits.h"

namespace
{

bool missed = false;

} // namespace

namespace BenchmarkLimits
{

void expectAtMost(benchmark::State &state, std::chrono::duration<double, std::milli> measured,
                  std::chrono::duration<double, std::milli> limit)
{
    state.counters["limit_ms"] = limit.count();
    if (measured <= limit)
        return;
    missed = true;
    const std::string text =
        std::to_string(measured.count()) + " ms instead of " + std::to_string(limit.count());
    state.SkipWithError(text.c_str());
}

bool wereKept()
{
    return !missed;
}

} // namespace BenchmarkLimits
