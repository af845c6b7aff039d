#pragma once

#include <chrono>
#include <functional>
#include <vector>

/// Times of single calls, for benchmarks that compare figures of one run with each other.
namespace BenchmarkTimes
{

using Milliseconds = std::chrono::duration<double, std::milli>;

/// Processor time that this thread has taken since it began.
[[nodiscard]] Milliseconds usedTime();

/// Processor time of this thread, so that the worst of many says nothing of other programs.
[[nodiscard]] Milliseconds timeOf(const std::function<void()> &work);

/// At least one time.
[[nodiscard]] Milliseconds medianOf(std::vector<Milliseconds> times);

} // namespace BenchmarkTimes
