// Type 132, platform memory description: an OEM structure, one for each block of SPD data in physical memory.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "Address",  4, Decimal, V2_7, "physical address of the block of SPD data"},
    {0x08, "Size",     4, Decimal, V2_7, "its size",                                  In(Unit::Bytes)},
    {0x0C, "Socket",   1, Decimal, V2_7, "socket of the memory device"},
    {0x0D, "Channel",  1, Decimal, V2_7, "memory channel"},
    {0x0E, "DimmSlot", 1, Decimal, V2_7, "DIMM slot"},
    {0x0F, "Reserved", 1, Decimal, V2_7, "reserved byte"},
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

constexpr Type Type132PlatformMemoryDescription{132, Instances::Indexed, V2_7, Fields, Sections};
static_assert(IsWellFormed(Type132PlatformMemoryDescription));

} // namespace Protocol::SMBIOS::Catalogue
