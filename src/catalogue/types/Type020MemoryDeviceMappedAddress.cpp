// Type 20, Memory Device Mapped Address.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row StartingAddressSpecials[] = {{0xFFFFFFFF, "see `ExtendedStartingAddress`"}};

constexpr Row EndingAddressSpecials[] = {{0xFFFFFFFF, "see `ExtendedEndingAddress`"}};

constexpr Row InterleaveSpecials[] = {
    {0, "not interleaved"},
    {0xFF, "unknown"},
};

constexpr Field Fields[] = {
    {0x04, "StartingAddress",                4, Decimal,  V2_1, "start of the mapped range",                In(Unit::Kilobytes).Except(StartingAddressSpecials)},
    {0x08, "EndingAddress",                  4, Decimal,  V2_1, "end of the mapped range",                  In(Unit::Kilobytes).Except(EndingAddressSpecials)},
    {0x0C, "MemoryDeviceHandle",             2, Decimal,  V2_1, "the device",                               HandleOf(17)},
    {0x0E, "MemoryArrayMappedAddressHandle", 2, Decimal,  V2_1, "the mapped range of the array",            HandleOf(19)},
    {0x10, "PartitionRowPosition",           1, Decimal,  V2_1, "position of the device in a row",          Plain.Except(UnknownIfFF)},
    {0x11, "InterleavePosition",             1, Decimal,  V2_1, "position of the device in an interleave",  Plain.Except(InterleaveSpecials)},
    {0x12, "InterleavedDataDepth",           1, Decimal,  V2_1, "rows that one interleaved transfer reads", Plain.Except(InterleaveSpecials)},
    {0x13, "ExtendedStartingAddress",        8, Unsigned, V2_7, "start of the mapped range",                In(Unit::Bytes)},
    {0x1B, "ExtendedEndingAddress",          8, Unsigned, V2_7, "end of the mapped range",                  In(Unit::Bytes)},
};

} // namespace

constexpr Type Type020MemoryDeviceMappedAddress{20, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type020MemoryDeviceMappedAddress));

} // namespace Protocol::SMBIOS::Catalogue
