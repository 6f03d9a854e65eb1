#include "bench/CountingNew.h"

#include <algorithm>
#include <cstdlib>
#include <malloc.h>
#include <new>

#if defined(_WIN32)
#define malloc_usable_size _msize
#endif

std::size_t CountingNew::Held = 0;
std::size_t CountingNew::Peak = 0;
std::size_t CountingNew::Count = 0;
std::size_t CountingNew::FailAt = 0;

// The forms for arrays end in these.

void* operator new(std::size_t size, const std::nothrow_t& /*unused*/) noexcept
{
    using namespace CountingNew;
    if (++Count == FailAt)
        return nullptr;
    void* const block = std::malloc(std::max<std::size_t>(size, 1));
    if (block != nullptr)
        Held += malloc_usable_size(block) + sizeof(std::size_t); // the word that a heap keeps beside it
    Peak = std::max(Peak, Held);
    return block;
}

void* operator new(std::size_t size)
{
    void* const block = operator new(size, std::nothrow);
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

void operator delete(void* block) noexcept
{
    if (block != nullptr)
        CountingNew::Held -= malloc_usable_size(block) + sizeof(std::size_t);
    std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept
{
    operator delete(block);
}
