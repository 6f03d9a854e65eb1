// Type 31, Boot Integrity Services (BIS) Entry Point.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Part EntryPoint16Parts[] = {
    {"EntryPoint16Offset",  0, 15},
    {"EntryPoint16Segment", 16, 31},
};

constexpr Field Fields[] = {
    {0x04, "Checksum",     1, Decimal, V2_3, "makes the bytes of the structure add up to 0"},
    {0x05, "Reserved1",    1, Hex,     V2_3, "reserved byte"},
    {0x06, "Reserved2",    2, Hex,     V2_3, "2 reserved bytes"},
    {0x08, "EntryPoint16", 4, Decimal, V2_3, "real-mode entry point",                                    Packed(EntryPoint16Parts)},
    {0x0C, "EntryPoint32", 4, Decimal, V2_3, "physical address of the entry point for 32-bit flat mode"},
    {0x10, "Reserved3",    8, Hex,     V2_3, "8 reserved bytes"},
    {0x18, "Reserved4",    4, Hex,     V2_3, "4 reserved bytes"},
};

} // namespace

constexpr Type Type031BootIntegrityServices{31, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type031BootIntegrityServices));

} // namespace Protocol::SMBIOS::Catalogue
