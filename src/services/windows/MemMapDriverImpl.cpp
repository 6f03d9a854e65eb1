// Windows lets no program at physical memory. The BIOS segment reads as erased ROM: it holds no entry point,
// and the table is read from the firmware block of the operating system.

#include "services/MemMapDriverImpl.h"

#include "SMBIOSProtocol/ResultStatus.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

namespace OS::Driver {

namespace {

constexpr std::uint64_t SegmentStart = 0xF0000;
constexpr std::uint64_t SegmentEnd = 0x100000;
constexpr unsigned char ErasedRom = 0xFF;

} // namespace

void MemMapDriverImpl::Map(unsigned long address, unsigned int length, MappingOwner* out)
{
    if (address < SegmentStart || std::uint64_t{address} + length > SegmentEnd) {
        char range[64];
        std::snprintf(range, sizeof range, "%u bytes of physical memory at %lXh", length, address);
        throw ResultStatus(
            RESULT_MAPPING_UNAVAILABLE,
            std::string("Cannot read ") + range +
                ": Windows gives programs no physical memory. What the table places there, such as "
                "raw SPD data, can not be read on this system.",
            "", XCOMMAND_NONE);
    }
    auto bytes = std::make_unique<unsigned char[]>(length);
    std::fill_n(bytes.get(), length, ErasedRom);
    MappingOwner image(new UnmapDeleter(bytes.get(), length));
    bytes.release();
    *out = image;
}

} // namespace OS::Driver
