// Type 19, Memory Array Mapped Address.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row StartingAddressSpecials[] = {{0xFFFFFFFF, "see `ExtendedStartingAddress`"}};

constexpr Row EndingAddressSpecials[] = {{0xFFFFFFFF, "see `ExtendedEndingAddress`"}};

constexpr Field Fields[] = {
    {0x04, "StartingAddress",   4, Decimal, V2_3, "start of the mapped range",         In(Unit::Kilobytes).Except(StartingAddressSpecials)},
    {0x08, "EndingAddress",     4, Decimal, V2_3, "end of the mapped range",           In(Unit::Kilobytes).Except(EndingAddressSpecials)},
    {0x0C, "MemoryArrayHandle", 2, Decimal, V2_3, "the array",                         HandleOf(16)},
    {0x0E, "PartitionWidth",    1, Decimal, V2_3, "number of devices that form a row"},
};

constexpr Field LaterFields[] = {
    {0x0F, "ExtendedStartingAddress", 8, Unsigned, V2_7, "start of the mapped range (valid when `StartingAddress` is FFFFFFFFh)", In(Unit::Bytes)},
    {0x17, "ExtendedEndingAddress",   8, Unsigned, V2_7, "end of the mapped range (valid when `EndingAddress` is FFFFFFFFh)",     In(Unit::Bytes)},
};

constexpr Section Sections[] = {
    FieldsOf(LaterFields),
};

} // namespace

constexpr Type Type019MemoryArrayMappedAddress{19, Instances::Indexed, V2_3, Fields, Sections};
static_assert(IsWellFormed(Type019MemoryArrayMappedAddress));

} // namespace Protocol::SMBIOS::Catalogue
