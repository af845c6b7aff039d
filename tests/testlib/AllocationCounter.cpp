#include "AllocationCounter.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace
{

std::atomic<std::size_t> allocations{0}, bytesTaken{0}, mostTaken{0};

void take(std::size_t size)
{
    ++allocations;
    const std::size_t now = bytesTaken += size;
    std::size_t most = mostTaken;
    while (now > most && !mostTaken.compare_exchange_weak(most, now)) {
    }
}

void release(void *memory)
{
    bytesTaken -= malloc_usable_size(memory);
    std::free(memory);
}

} // namespace

namespace AllocationCounter
{

std::size_t count()
{
    return allocations;
}

std::size_t bytes()
{
    return bytesTaken;
}

std::size_t largestBytes()
{
    return mostTaken;
}

void forgetLargest()
{
    mostTaken = bytesTaken.load();
}

} // namespace AllocationCounter

void *operator new(std::size_t size)
{
    void *memory = std::malloc(size > 0 ? size : 1);
    if (!memory)
        throw std::bad_alloc();
    take(malloc_usable_size(memory));
    return memory;
}

void operator delete(void *memory) noexcept
{
    release(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    release(memory);
}
