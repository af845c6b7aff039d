#pragma once

#include <benchmark/benchmark.h>

#include <chrono>

/// Limits that a benchmark must keep; a program with a missed one ends with exit code 1.
namespace BenchmarkLimits
{

/// Ends the benchmark with an error if `measured` exceeds `limit`, and remembers the miss.
void expectAtMost(benchmark::State &state, std::chrono::duration<double, std::milli> measured,
                  std::chrono::duration<double, std::milli> limit);

[[nodiscard]] bool wereKept();

} // namespace BenchmarkLimits
