// Type 19, Memory Array Mapped Address.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "StartingAddress",   4, Decimal, V2_3},
    {0x08, "EndingAddress",     4, Decimal, V2_3},
    {0x0C, "MemoryArrayHandle", 2, Decimal, V2_3},
    {0x0E, "PartitionWidth",    1, Decimal, V2_3},
};

static_assert(IsWellFormed(Fields));

constexpr Field LaterFields[] = {
    {0x0F, "ExtendedStartingAddress", 8, Unsigned, V2_7},
    {0x17, "ExtendedEndingAddress",   8, Unsigned, V2_7},
};

constexpr Section Sections[] = {
    FieldsOf(LaterFields),
};

static_assert(IsWellFormed(Sections));

} // namespace

const Type Type019MemoryArrayMappedAddress{19, Instances::Indexed, V2_3, Fields, Sections};

} // namespace Protocol::SMBIOS::Catalogue
