#pragma once

#include <cstddef>
#include <cstdint>

namespace Protocol::SMBIOS {

/// The number in `width` bytes, at most eight, the lowest first.
template <typename Byte>
std::uint64_t LittleEndian(const Byte* bytes, std::size_t width)
{
    std::uint64_t value = 0;
    for (std::size_t i = width; i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
}

} // namespace Protocol::SMBIOS
