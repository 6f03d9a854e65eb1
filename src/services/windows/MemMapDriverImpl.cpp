// Windows lets no program at physical memory. The range that is searched for the entry point reads as erased
// ROM: it holds none, and the table is read from the firmware block of the operating system.

#include "services/MemMapDriverImpl.h"

#include "SMBIOSProtocol/ResultStatus.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>

namespace OS::Driver {

namespace {

constexpr unsigned char ErasedRom = 0xFF;
constexpr const char* Reason = "Windows gives programs no physical memory";

} // namespace

bool MemMapDriverImpl::Offers(unsigned long address, unsigned int length, std::string& reason)
{
    if (length == 0 || (address == ScanAddress && length == ScanLength))
        return true;
    reason = Reason;
    return false;
}

void MemMapDriverImpl::Map(unsigned long address, unsigned int length, MappingOwner* out)
{
    std::string reason;
    if (!Offers(address, length, reason)) {
        char range[64];
        std::snprintf(range, sizeof range, "%u bytes of physical memory at %lXh", length, address);
        throw ResultStatus(RESULT_MAPPING_UNAVAILABLE,
                           std::string("Cannot read ") + range + ": " + reason +
                               ". What the table places there can not be read on this system.",
                           "", XCOMMAND_NONE);
    }
    auto bytes = std::make_unique<unsigned char[]>(length);
    std::fill_n(bytes.get(), length, ErasedRom);
    MappingOwner image(new UnmapDeleter(bytes.get(), length));
    bytes.release();
    *out = image;
}

} // namespace OS::Driver
