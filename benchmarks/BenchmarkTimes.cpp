#include "BenchmarkTimes.h"

#include <algorithm>
#include <ctime>

namespace BenchmarkTimes
{

Milliseconds usedTime()
{
    std::timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

Milliseconds timeOf(const std::function<void()> &work)
{
    const Milliseconds start = usedTime();
    work();
    return usedTime() - start;
}

Milliseconds medianOf(std::vector<Milliseconds> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace BenchmarkTimes
