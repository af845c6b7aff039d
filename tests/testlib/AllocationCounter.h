#pragma once

#include <cstddef>

/// Counts the allocations of the whole test program that go through operator new, and what they take.
namespace AllocationCounter
{

[[nodiscard]] std::size_t count();

/// The bytes that are taken now, and the most that were since forgetLargest().
[[nodiscard]] std::size_t bytes();
[[nodiscard]] std::size_t largestBytes();
void forgetLargest();

} // namespace AllocationCounter
