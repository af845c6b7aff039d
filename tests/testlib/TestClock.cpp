#include "TestClock.h"

#include <QCoreApplication>

#include <dlfcn.h>

#include <atomic>
#include <ctime>

using namespace std::chrono_literals;

namespace
{

constexpr std::chrono::milliseconds step = 10ms;
constexpr long nanosecondsPerSecond = 1000000000;

std::atomic<long long> forwardNs{0};

} // namespace

/// Takes the place of the C library's in the whole process.
extern "C" __attribute__((visibility("default"))) int clock_gettime(clockid_t clock, timespec *time) noexcept
{
    using Read = int (*)(clockid_t, timespec *);
    static const auto read = reinterpret_cast<Read>(dlsym(RTLD_NEXT, "clock_gettime"));
    const int result = read(clock, time);
    if (result == 0 && clock == CLOCK_MONOTONIC) {
        const long long nanoseconds = time->tv_nsec + forwardNs;
        time->tv_sec += static_cast<time_t>(nanoseconds / nanosecondsPerSecond);
        time->tv_nsec = static_cast<long>(nanoseconds % nanosecondsPerSecond);
    }
    return result;
}

namespace TestClock
{

void advance(std::chrono::milliseconds time)
{
    for (auto passed = 0ms; passed < time; passed += step) {
        forwardNs += std::chrono::nanoseconds(step).count();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

} // namespace TestClock
