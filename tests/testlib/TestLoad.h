#pragma once

#include <QtGlobal>

/// The sanitizer's own beginning; there only in programs that are linked with it.
extern "C" void __asan_init() __attribute__((weak));

/// How much of a long repetition a run does.
///
/// The plain run in the C locale does all of it. The run with the decimal comma asks whether anything depends
/// on the locale, and the sanitizers slow everything down many times; for both a tenth shows as much.
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

} // namespace TestLoad
