// The structures that name each other, with the fields that the tests vary; all others are zeros.

#pragma once

#include "support/Image.h"

namespace TestImages {

/// A processor with the handles of its first two caches; its socket is filled. Its voltage byte 3 is the
/// legacy form, whose text has line feeds and tabs.
inline Structure Processor(std::uint16_t handle, unsigned int cache1 = 0xFFFF, unsigned int cache2 = 0xFFFF,
                           unsigned int status = 0x41, const std::string& socket = "CPU")
{
    return StructureOf(4, handle, socket, 3, 1, "", Bytes(16, 3), status, 0, Word{cache1}, Word{cache2},
                       Word{0xFFFF}, Bytes(10));
}

inline Structure Cache(std::uint16_t handle, const std::string& name)
{
    return StructureOf(7, handle, name, Bytes(14));
}

inline Structure MemoryArray(std::uint16_t handle, unsigned int errorHandle = 0xFFFE)
{
    return StructureOf(16, handle, 3, 3, 3, Dword{0}, Word{errorHandle}, Word{1});
}

inline Structure MemoryDevice(unsigned int array, unsigned int size, const std::string& slot,
                              unsigned int errorHandle = 0xFFFF)
{
    return StructureOf(17, 0x1100, Word{array}, Word{errorHandle}, Dword{0}, Word{size}, 9, 0, slot,
                       Bytes(15));
}

inline Structure MemoryError(std::uint16_t handle, unsigned int kind = 4)
{
    return StructureOf(18, handle, kind, Bytes(18));
}

} // namespace TestImages
