// Type 2, Baseboard Information.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row FeatureFlagsRows[] = {
    {0, "Board is hosting board"},
    {1, "board requires at least one daughter board to function properly"},
    {2, "the board is removable"},
    {3, "board is replaceable"},
    {4, "board is hot swappable"},
};

constexpr Row BoardTypeRows[] = {
    {0x00, "Reserved"},
    {0x01, "Unknown"},
    {0x02, "Other"},
    {0x03, "Server Blade"},
    {0x04, "Connectivity Switch"},
    {0x05, "System Management Module"},
    {0x06, "Processor Module"},
    {0x07, "I/O Module"},
    {0x08, "Memory Module"},
    {0x09, "Daughter board"},
    {0x0A, "Motherboard"},
    {0x0B, "Processor/Memory Module"},
    {0x0C, "Processor/IO Module"},
    {0x0D, "Interconnect Board"},
};

constexpr Field Fields[] = {
    {0x04, "Manufacturer",         StringReference, String,  V2_3, "board manufacturer"},
    {0x05, "Product",              StringReference, String,  V2_3, "board product name"},
    {0x06, "Version",              StringReference, String,  V2_3, "version text"},
    {0x07, "SerialNo",             StringReference, String,  V2_3, "serial number"},
    {0x08, "AssetTag",             StringReference, String,  V2_3, "asset tag"},
    {0x09, "FeatureFlags",         1,               Decimal, V2_3, "features of the board",                                        Bits(FeatureFlagsRows)},
    {0x0A, "LocationInChassis",    StringReference, String,  V2_3, "where the board sits in the chassis"},
    {0x0B, "ChassisHandle",        2,               Decimal, V2_3, "the chassis that holds the board",                             HandleOf(3)},
    {0x0D, "BoardType",            1,               Decimal, V2_3, "board type",                                                   Enumeration(BoardTypeRows)},
    {0x0E, "NumOfObjectHandles",   1,               Decimal, V2_3, "number of `ContainedObject` records"},
    {0x0F, "ContainObjectHandles", 2,               Decimal, V2_3, "the first contained object; `ContainedObject[n]` of the newest catalogue has all", HandleOf(), CountAt(0x0E)},
};

constexpr Field ContainedObjectFields[] = {
    {0x00, "ContainedObjectHandle", 2, Decimal, V2_3, "one that the board contains", HandleOf()},
};

constexpr Section Sections[] = {
    Group("ContainedObject", 0x0F, CountAt(0x0E), BytesEach(2), ContainedObjectFields),
};

} // namespace

constexpr Type Type002BaseboardInformation{2, Instances::Indexed, V2_3, Fields, Sections};
static_assert(IsWellFormed(Type002BaseboardInformation));

} // namespace Protocol::SMBIOS::Catalogue
