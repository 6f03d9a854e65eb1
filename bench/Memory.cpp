#include "Memory.h"

#include <algorithm>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

std::size_t held = 0;
std::size_t peak = 0;
std::size_t heldAtBegin = 0;

} // namespace

void* operator new(std::size_t size)
{
    void* const block = std::malloc(size);
    if (block == nullptr)
        throw std::bad_alloc();
    held += malloc_usable_size(block);
    peak = std::max(peak, held);
    return block;
}

void operator delete(void* block) noexcept
{
    held -= malloc_usable_size(block);
    std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept
{
    operator delete(block);
}

namespace Memory {

void Begin()
{
    heldAtBegin = held;
    peak = held;
}

Use SinceBegin()
{
    return {held - heldAtBegin, peak - heldAtBegin};
}

} // namespace Memory
