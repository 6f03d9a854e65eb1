// The owner of one image of physical memory.

#pragma once

#include <cstdint>
#include <memory>

namespace OS::Driver {

/// Owns `Length` bytes from `Pointer`, an array that was made with new[].
class UnmapDeleter {
public:
    /// Owns nothing.
    UnmapDeleter() : Length(0), Pointer(nullptr), Reserved(0) {}
    /// Takes `length` bytes from `pointer`.
    UnmapDeleter(void* pointer, unsigned int length) : Length(length), Pointer(pointer), Reserved(0) {}
    ~UnmapDeleter() { delete[] static_cast<unsigned char*>(Pointer); }

    UnmapDeleter(const UnmapDeleter&) = delete;
    /// Takes over the members as they are; one of the two objects must give up `Pointer` then.
    UnmapDeleter& operator=(const UnmapDeleter&) = default;

    unsigned int Length; ///< bytes
    void* Pointer;       ///< the first of them; null: none

private:
    [[maybe_unused]] std::uint64_t Reserved; ///< part of the driver's layout, without a use here
};

// The driver's `Map` takes std::auto_ptr, which the standard has dropped: this is the one place that names
// it.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#elif defined(_MSC_VER)
#pragma warning(push)
#pragma warning(disable : 4996)
#endif

/// Exclusive owner of an UnmapDeleter; copying moves.
using MappingOwner = std::auto_ptr<UnmapDeleter>;

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#elif defined(_MSC_VER)
#pragma warning(pop)
#endif

} // namespace OS::Driver
