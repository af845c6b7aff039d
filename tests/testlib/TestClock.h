#pragma once

#include <chrono>

/// A clock that can be put forward, for what must not happen however long one waits.
///
/// In a program that links it, the monotonic clock of the process is the system's plus what it was put
/// forward; Qt's timers and QElapsedTimer follow it. Other processes keep their own time.
namespace TestClock
{

/// Lets this time pass at once, in steps of 10 ms. Every timer that is due fires, and posted events are
/// delivered.
void advance(std::chrono::milliseconds time);

} // namespace TestClock
