#include "support/CountedMemory.h"

#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

using counted::held, counted::most;

void* hold(std::size_t size)
{
    const std::size_t largest = counted::largestBlock;
    void* block = largest != 0 && size > largest ? nullptr : std::malloc(size);
    if (!block) throw std::bad_alloc();
    const long long now = held += static_cast<long long>(malloc_usable_size(block));
    for (long long before = most; before < now && !most.compare_exchange_weak(before, now);) {
    }
    return block;
}

void release(void* block) noexcept
{
    if (block) held -= static_cast<long long>(malloc_usable_size(block));
    std::free(block);
}

}  // namespace

void* operator new(std::size_t size) { return hold(size); }
void* operator new[](std::size_t size) { return hold(size); }
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t) noexcept { release(block); }
void operator delete[](void* block, std::size_t) noexcept { release(block); }
