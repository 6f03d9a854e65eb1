// Type 31, Boot Integrity Services (BIS) Entry Point.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Part EntryPoint16Parts[] = {
    {"EntryPoint16Offset",  0, 15},
    {"EntryPoint16Segment", 16, 31},
};

constexpr Field Fields[] = {
    {0x04, "Checksum",     1, Decimal, V2_3},
    {0x05, "Reserved1",    1, Hex,     V2_3},
    {0x06, "Reserved2",    2, Hex,     V2_3},
    {0x08, "EntryPoint16", 4, Decimal, V2_3, Packed(EntryPoint16Parts)},
    {0x0C, "EntryPoint32", 4, Decimal, V2_3},
    {0x10, "Reserved3",    8, Hex,     V2_3},
    {0x18, "Reserved4",    4, Hex,     V2_3},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type031BootIntegrityServices{31, Instances::Indexed, Later, Fields};

} // namespace Protocol::SMBIOS::Catalogue
