// Type 32, System Boot Information.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row BootStatusCodeRows[] = {
    {0x00, "No errors detected"},
    {0x01, "No bootable media"},
    {0x02, "Normal operating system failed to load"},
    {0x03, "Firmware-detected hardware failure"},
    {0x04, "Operating system-detected hardware failure"},
    {0x05, "User-requested boot"},
    {0x06, "System security violation"},
    {0x07, "Previously requested image"},
    {0x08, "System watchdog timer expired"},
};

constexpr Field Fields[] = {
    {0x04, "Reserved",   6,  Hex, V2_3, "reserved bytes"},
    {0x0A, "BootStatus", 10, Hex, V2_3, "boot status and further data"},
};

constexpr Field CodeFields[] = {
    {0x0A, "BootStatusCode", 1,            Decimal, V2_3, "the first byte of `BootStatus`, which many structures hold alone", Enumeration(BootStatusCodeRows)},
    {0x0B, "BootStatusData", RestOfRecord, Hex,     V2_3, "what stands behind it"},
};

constexpr Section Sections[] = {
    FieldsOf(CodeFields),
};

} // namespace

constexpr Type Type032SystemBootInformation{32, Instances::Shared, V2_3, Fields, Sections};
static_assert(IsWellFormed(Type032SystemBootInformation));

} // namespace Protocol::SMBIOS::Catalogue
