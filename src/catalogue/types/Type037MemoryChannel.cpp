// Type 37, Memory Channel.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row ChannelTypeRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "RamBus"},
    {0x04, "SyncLink"},
};

constexpr Field Fields[] = {
    {0x04, "ChannelType",        1, Decimal, V2_3, "kind of memory on the channel",    Enumeration(ChannelTypeRows)},
    {0x05, "MaximumChannelLoad", 1, Decimal, V2_3, "greatest sum of the device loads"},
    {0x06, "MemoryDeviceCount",  1, Decimal, V2_3, "number of devices on the channel"},
};

constexpr Field MemoryDeviceFields[] = {
    {0x00, "MemoryDeviceLoad",   1, Decimal, V2_3, "load of the device"},
    {0x01, "MemoryDeviceHandle", 2, Decimal, V2_3, "the device",         HandleOf(17)},
};

constexpr Section Sections[] = {
    Group("MemoryDevice", 0x07, CountAt(0x06), BytesEach(3), MemoryDeviceFields),
};

} // namespace

constexpr Type Type037MemoryChannel{37, Instances::Indexed, Later, Fields, Sections};
static_assert(IsWellFormed(Type037MemoryChannel));

} // namespace Protocol::SMBIOS::Catalogue
