#pragma once

#include <QtGlobal>

/// The sanitizer's own beginning; there only in programs that are linked with it.
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming): so it is called there
extern "C" void __asan_init() __attribute__((weak));

/// How much of a long repetition a run does.
///
/// The plain run in the C locale does all of it. The run with the decimal comma asks whether anything depends
/// on the locale, and the sanitizers slow everything down many times; for both a tenth shows as much. Of a
/// sweep, which looks at so many cases that its length is what tells, each of them does a part; all of it is
/// done with ROOM_WHOLE_SWEEPS in the environment.
namespace TestLoad
{

/// Whether the program runs under AddressSanitizer.
[[nodiscard]] inline bool isSanitized()
{
    return __asan_init != nullptr;
}

[[nodiscard]] inline bool isFull()
{
    return !isSanitized() && !qEnvironmentVariableIsSet("ROOM_EXPECT_DECIMAL_COMMA");
}

/// `count`, or a tenth of it.
[[nodiscard]] inline int share(int count)
{
    return isFull() ? count : (count + 9) / 10;
}

/// The same, where `count` is already what suits the sanitizers.
[[nodiscard]] inline int shareUnlessSanitized(int count)
{
    return isSanitized() ? count : share(count);
}

/// Whether a sweep goes through all that it can.
[[nodiscard]] inline bool isWholeSweep()
{
    return qEnvironmentVariableIsSet("ROOM_WHOLE_SWEEPS");
}

/// Every how many of the cases of a sweep, of which a part is every `part`th, this run looks at.
[[nodiscard]] inline int stride(int part)
{
    return isWholeSweep() ? 1 : part;
}

/// The share of `count` cases of a sweep, of which a part is a quarter.
[[nodiscard]] inline int sweepShare(int count)
{
    return share(isWholeSweep() ? count : (count + 3) / 4);
}

} // namespace TestLoad
