// Type 20, Memory Device Mapped Address.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "StartingAddress",                4, Decimal,  V2_1},
    {0x08, "EndingAddress",                  4, Decimal,  V2_1},
    {0x0C, "MemoryDeviceHandle",             2, Decimal,  V2_1},
    {0x0E, "MemoryArrayMappedAddressHandle", 2, Decimal,  V2_1},
    {0x10, "PartitionRowPosition",           1, Decimal,  V2_1},
    {0x11, "InterleavePosition",             1, Decimal,  V2_1},
    {0x12, "InterleavedDataDepth",           1, Decimal,  V2_1},
    {0x13, "ExtendedStartingAddress",        8, Unsigned, V2_7},
    {0x1B, "ExtendedEndingAddress",          8, Unsigned, V2_7},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type020MemoryDeviceMappedAddress{20, Instances::Indexed, Later, Fields};

} // namespace Protocol::SMBIOS::Catalogue
