#pragma once

#include <cstddef>

/// Counts the allocations of the whole test program that go through operator new.
namespace AllocationCounter
{

[[nodiscard]] std::size_t count();

} // namespace AllocationCounter
