// Physical memory.

#pragma once

#include "SMBIOSProtocol/UnmapDeleter.h"

#include <string>

namespace OS::Driver {

/// The range that is searched for the entry point, in the BIOS segment.
constexpr unsigned long ScanAddress = 0xF0000;
constexpr unsigned int ScanLength = 65534;
/// Entry points are sought on 4-byte steps, not the standard's 16: some firmware shifts them.
constexpr unsigned int ScanStep = 4;

class MemMapDriverImpl {
public:
    /// Makes `length` bytes of physical memory from `address` readable and gives their owner to `out`, in
    /// place of what it held. The bytes stay when this object goes. Throws ResultStatus with one of the
    /// RESULT_MAPPING codes; the message names the range and the system's reason.
    /// A length of 0 always succeeds.
    void Map(unsigned long address, unsigned int length, MappingOwner* out);

    /// Whether the system gives this process that range at all. Where it does not, since it has no way to
    /// physical memory or keeps the range to itself, `reason` says why. True says no more than that Map is
    /// worth a try. Asked without the lock: what is read to find out is thrown away.
    bool Offers(unsigned long address, unsigned int length, std::string& reason);
};

} // namespace OS::Driver
