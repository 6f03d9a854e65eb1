// Type 133, platform reserved memory: an OEM structure that gives the range which the firmware keeps.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "Address", 4, Decimal, V2_7, "physical address of the reserved memory"},
    {0x08, "Size",    4, Decimal, V2_7, "its size",                                In(Unit::Bytes)},
};

// Other platforms use the number for structures of their own.
constexpr Field DataFields[] = {
    {0x04, "Data", RestOfRecord, Hex, V2_0, "all bytes behind the header: on other platforms the number means other things"},
};

constexpr Section Sections[] = {
    FieldsOf(DataFields),
    StringList("String"),
};

} // namespace

constexpr Type Type133PlatformReservedMemory{133, Instances::Shared, V2_7, Fields, Sections};
static_assert(IsWellFormed(Type133PlatformReservedMemory));

} // namespace Protocol::SMBIOS::Catalogue
