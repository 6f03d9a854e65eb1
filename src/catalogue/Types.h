// The structure types of the catalogue, each in a file of its own below types/.

#pragma once

#include "catalogue/Definition.h"

namespace Protocol::SMBIOS::Catalogue {

extern const Type Type000BiosInformation;
extern const Type Type001SystemInformation;
extern const Type Type002BaseboardInformation;
extern const Type Type003SystemEnclosure;
extern const Type Type004ProcessorInformation;
extern const Type Type007CacheInformation;
extern const Type Type008PortConnectorInformation;
extern const Type Type009SystemSlots;
extern const Type Type010OnBoardDevices;
extern const Type Type011OemStrings;
extern const Type Type013BiosLanguage;
extern const Type Type016PhysicalMemoryArray;
extern const Type Type017MemoryDevice;
extern const Type Type018MemoryErrorInformation32;
extern const Type Type019MemoryArrayMappedAddress;
extern const Type Type024HardwareSecurity;
extern const Type Type032SystemBootInformation;
extern const Type Type038IpmiDevice;
extern const Type Type132PlatformMemoryDescription;
extern const Type Type133PlatformReservedMemory;

} // namespace Protocol::SMBIOS::Catalogue
