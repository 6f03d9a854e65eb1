/// \file
/// The owner of one image of physical memory.

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
// it. Where the standard library does not offer it, an owner of the same form and layout stands in for it.
#if (defined(_GLIBCXX_USE_DEPRECATED) && _GLIBCXX_USE_DEPRECATED) ||                                         \
    (defined(_HAS_AUTO_PTR_ETC) && _HAS_AUTO_PTR_ETC) || defined(_LIBCPP_ENABLE_CXX17_REMOVED_AUTO_PTR)

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

#else

/// Exclusive owner of an UnmapDeleter; copying moves.
class MappingOwner {
public:
    /// Owns `owned`, made with new, or nothing.
    explicit MappingOwner(UnmapDeleter* owned = nullptr) noexcept : Owned(owned) {}
    /// Takes what `source` owns.
    MappingOwner(MappingOwner& source) noexcept : Owned(source.release()) {}
    /// Takes what `source` owns.
    MappingOwner(MappingOwner&& source) noexcept : Owned(source.release()) {}
    /// Takes what `source` owns; what this one owned goes.
    MappingOwner& operator=(MappingOwner& source) noexcept
    {
        reset(source.release());
        return *this;
    }
    /// Takes what `source` owns; what this one owned goes.
    MappingOwner& operator=(MappingOwner&& source) noexcept { return *this = source; }
    ~MappingOwner() { delete Owned; }

    UnmapDeleter& operator*() const noexcept { return *Owned; } ///< what is owned
    UnmapDeleter* operator->() const noexcept { return Owned; } ///< what is owned
    UnmapDeleter* get() const noexcept { return Owned; }        ///< what is owned; null: nothing
    /// Gives up what is owned to the caller.
    UnmapDeleter* release() noexcept
    {
        UnmapDeleter* const released = Owned;
        Owned = nullptr;
        return released;
    }
    /// Owns `owned` from now on; what it owned before goes.
    void reset(UnmapDeleter* owned = nullptr) noexcept
    {
        if (owned != Owned)
            delete Owned;
        Owned = owned;
    }

private:
    UnmapDeleter* Owned;
};

#endif

} // namespace OS::Driver
