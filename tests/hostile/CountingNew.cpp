#include "hostile/CountingNew.h"

#include <algorithm>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

std::size_t HeldBytes = 0;
std::size_t PeakBytes = 0;
std::size_t Allocations = 0;
std::size_t FailingAllocation = 0;

// With the word that a heap keeps beside each block.
std::size_t SizeInHeap(void* block)
{
#if defined(_WIN32)
    return _msize(block) + sizeof(std::size_t);
#else
    return malloc_usable_size(block) + sizeof(std::size_t);
#endif
}

void* AllocateOrNull(std::size_t size) noexcept
{
    if (++Allocations == FailingAllocation)
        return nullptr;
    void* const block = std::malloc(std::max<std::size_t>(size, 1));
    if (block != nullptr)
        HeldBytes += SizeInHeap(block);
    PeakBytes = std::max(PeakBytes, HeldBytes);
    return block;
}

void* Allocate(std::size_t size)
{
    void* const block = AllocateOrNull(size);
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

void Release(void* block) noexcept
{
    if (block != nullptr)
        HeldBytes -= SizeInHeap(block);
    std::free(block);
}

} // namespace

void* operator new(std::size_t size)
{
    return Allocate(size);
}

void* operator new[](std::size_t size)
{
    return Allocate(size);
}

void* operator new(std::size_t size, const std::nothrow_t& /*unused*/) noexcept
{
    return AllocateOrNull(size);
}

void operator delete(void* block) noexcept
{
    Release(block);
}

void operator delete[](void* block) noexcept
{
    Release(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept
{
    Release(block);
}

void operator delete[](void* block, std::size_t /*size*/) noexcept
{
    Release(block);
}

namespace CountingNew {

std::size_t Held()
{
    return HeldBytes;
}

std::size_t Peak()
{
    return PeakBytes;
}

void StartPeak()
{
    PeakBytes = HeldBytes;
}

std::size_t Count()
{
    return Allocations;
}

void FailAt(std::size_t n)
{
    FailingAllocation = n == 0 ? 0 : Allocations + n;
}

bool HasFailed()
{
    return FailingAllocation != 0 && Allocations >= FailingAllocation;
}

} // namespace CountingNew
