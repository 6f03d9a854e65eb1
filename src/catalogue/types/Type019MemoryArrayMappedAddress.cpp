// Type 19, Memory Array Mapped Address.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "StartingAddress",   4, Decimal, V2_3, "start of the mapped range in kilobytes; FFFFFFFFh see `ExtendedStartingAddress`"},
    {0x08, "EndingAddress",     4, Decimal, V2_3, "end of the mapped range in kilobytes; FFFFFFFFh see `ExtendedEndingAddress`"},
    {0x0C, "MemoryArrayHandle", 2, Decimal, V2_3, "handle of the Type 16 structure"},
    {0x0E, "PartitionWidth",    1, Decimal, V2_3, "number of devices that form a row"},
};

static_assert(IsWellFormed(Fields));

constexpr Field LaterFields[] = {
    {0x0F, "ExtendedStartingAddress", 8, Unsigned, V2_7, "start of the mapped range in bytes, valid when `StartingAddress` is FFFFFFFFh"},
    {0x17, "ExtendedEndingAddress",   8, Unsigned, V2_7, "end of the mapped range in bytes, valid when `EndingAddress` is FFFFFFFFh"},
};

constexpr Section Sections[] = {
    FieldsOf(LaterFields),
};

static_assert(IsWellFormed(Sections));

} // namespace

const Type Type019MemoryArrayMappedAddress{19, Instances::Indexed, V2_3, Fields, Sections};

} // namespace Protocol::SMBIOS::Catalogue
