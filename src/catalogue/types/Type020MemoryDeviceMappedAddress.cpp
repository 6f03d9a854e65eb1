// Type 20, Memory Device Mapped Address.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "StartingAddress",                4, Decimal,  V2_1, "start of the mapped range in kilobytes, FFFFFFFFh see `ExtendedStartingAddress`"},
    {0x08, "EndingAddress",                  4, Decimal,  V2_1, "end of the mapped range in kilobytes, FFFFFFFFh see `ExtendedEndingAddress`"},
    {0x0C, "MemoryDeviceHandle",             2, Decimal,  V2_1, "handle of the Type 17 structure"},
    {0x0E, "MemoryArrayMappedAddressHandle", 2, Decimal,  V2_1, "handle of the Type 19 structure"},
    {0x10, "PartitionRowPosition",           1, Decimal,  V2_1, "position of the device in a row, FFh unknown"},
    {0x11, "InterleavePosition",             1, Decimal,  V2_1, "position of the device in an interleave, 0 not interleaved, FFh unknown"},
    {0x12, "InterleavedDataDepth",           1, Decimal,  V2_1, "rows that one interleaved transfer reads, 0 not interleaved, FFh unknown"},
    {0x13, "ExtendedStartingAddress",        8, Unsigned, V2_7, "start of the mapped range in bytes"},
    {0x1B, "ExtendedEndingAddress",          8, Unsigned, V2_7, "end of the mapped range in bytes"},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type020MemoryDeviceMappedAddress{20, Instances::Indexed, Later, Fields};

} // namespace Protocol::SMBIOS::Catalogue
