// Type 1, System Information.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row WakeupTypeRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "APM Timer"},
    {0x04, "Modem Ring"},
    {0x05, "LAN Remote"},
    {0x06, "Power Switch"},
    {0x07, "PCI PME"},
    {0x08, "AC Power Restored"},
};

constexpr Row UUIDSpecials[] = {
    {0, "not present"},
    {AllOnes, "not set"},
};

constexpr Field Fields[] = {
    {0x04, "Manufacturer", StringReference, String,  V2_3, "system manufacturer"},
    {0x05, "ProductName",  StringReference, String,  V2_3, "product name"},
    {0x06, "Version",      StringReference, String,  V2_3, "version text"},
    {0x07, "SerialNo",     StringReference, String,  V2_3, "serial number"},
    {0x08, "UUID",         16,              HexBare, V2_3, "the system UUID",      DecodedBy(TableKind::UUID).Except(UUIDSpecials)},
    {0x18, "WakeupType",   1,               Decimal, V2_3, "what woke the system", Enumeration(WakeupTypeRows)},
    {0x19, "SKUNumber",    StringReference, String,  V2_4, "SKU number"},
    {0x1A, "Family",       StringReference, String,  V2_4, "product family text"},
};

} // namespace

constexpr Type Type001SystemInformation{1, Instances::Shared, V2_3, Fields};
static_assert(IsWellFormed(Type001SystemInformation));

} // namespace Protocol::SMBIOS::Catalogue
