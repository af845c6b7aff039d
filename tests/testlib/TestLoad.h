#pragma once

#include <QtGlobal>

/// How much of a long repetition a run does.
///
/// The plain run in the C locale does all of it. The run with the decimal comma asks whether anything depends
/// on the locale, and the sanitizers slow everything down many times; for both a tenth shows as much.
namespace TestLoad
{

[[nodiscard]] inline bool isFull()
{
#ifdef __SANITIZE_ADDRESS__
    return false;
#else
    return !qEnvironmentVariableIsSet("ROOM_EXPECT_DECIMAL_COMMA");
#endif
}

/// `count`, or a tenth of it.
[[nodiscard]] inline int share(int count)
{
    return isFull() ? count : (count + 9) / 10;
}

} // namespace TestLoad
