// Physical memory.

#pragma once

#include "SMBIOSProtocol/UnmapDeleter.h"

namespace OS::Driver {

class MemMapDriverImpl {
public:
    /// Makes `length` bytes of physical memory from `address` readable and gives their owner to `out`, in
    /// place of what it held. The bytes stay when this object goes. Throws ResultStatus with one of the
    /// RESULT_MAPPING codes; the message names the range and the system's reason.
    void Map(unsigned long address, unsigned int length, MappingOwner* out);
};

} // namespace OS::Driver
