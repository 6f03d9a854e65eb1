// Mapping physical memory under the machine-wide lock.

#pragma once

#include "SMBIOSProtocol/UnmapDeleter.h"

namespace Protocol::SMBIOS {

/// Name of this library in the log.
constexpr const char* SourceFile = ".\\SMBIOSProtocolImpl";

/// Maps `length` bytes from `address` into `owner` while it holds the lock "GLOBAL_MEMORY_MAPPING", which
/// serialises all who map physical memory on this machine. `function` and `line` name the caller in the log.
/// Throws what Map throws, with the lock given back.
void MapUnderLock(unsigned long address, unsigned int length, OS::Driver::MappingOwner& owner,
                  const char* function, int line);

} // namespace Protocol::SMBIOS
