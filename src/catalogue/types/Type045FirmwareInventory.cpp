// Type 45, Firmware Inventory Information.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row VersionFormatRows[] = {
    {0x00, "Free-form string"},
    {0x01, "MAJOR.MINOR"},
    {0x02, "32-bit hexadecimal string"},
    {0x03, "64-bit hexadecimal string"},
};

constexpr Row FirmwareIDFormatRows[] = {
    {0x00, "Free-form string"},
    {0x01, "UEFI ESRT FwClass GUID or FMP ImageTypeId"},
};

constexpr Row CharacteristicsRows[] = {
    {0, "Updatable"},
    {1, "Write-Protect"},
};

constexpr Row StateRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Disabled"},
    {0x04, "Enabled"},
    {0x05, "Absent"},
    {0x06, "StandbyOffline"},
    {0x07, "StandbySpare"},
    {0x08, "UnavailableOffline"},
};

constexpr Row ImageSizeSpecials[] = {{AllOnes, "unknown"}};

constexpr Field Fields[] = {
    {0x04, "FirmwareComponentName",          StringReference, String,   V3_5, "name of the firmware"},
    {0x05, "FirmwareVersion",                StringReference, String,   V3_5, "version text, in the form of `VersionFormat`"},
    {0x06, "VersionFormat",                  1,               Decimal,  V3_5, "form of the version texts",                                                    Enumeration(VersionFormatRows)},
    {0x07, "FirmwareID",                     StringReference, String,   V3_5, "identifier text, in the form of `FirmwareIDFormat`"},
    {0x08, "FirmwareIDFormat",               1,               Decimal,  V3_5, "form of the identifier text",                                                  Enumeration(FirmwareIDFormatRows)},
    {0x09, "ReleaseDate",                    StringReference, String,   V3_5, "release date text"},
    {0x0A, "Manufacturer",                   StringReference, String,   V3_5, "maker of the firmware"},
    {0x0B, "LowestSupportedFirmwareVersion", StringReference, String,   V3_5, "oldest version that it can be rolled back to, in the form of `VersionFormat`"},
    {0x0C, "ImageSize",                      8,               Unsigned, V3_5, "size of the image",                                                            In(Unit::Bytes).Except(ImageSizeSpecials)},
    {0x14, "Characteristics",                2,               Decimal,  V3_5, "characteristics",                                                              Bits(CharacteristicsRows)},
    {0x16, "State",                          1,               Decimal,  V3_5, "state of the firmware",                                                        Enumeration(StateRows)},
    {0x17, "NumberOfAssociatedComponents",   1,               Decimal,  V3_5, "number of handles behind it"},
};

constexpr Field AssociatedComponentFields[] = {
    {0x00, "AssociatedComponentHandle", 2, Decimal, V3_5, "one whose device runs the firmware", HandleOf()},
};

constexpr Section Sections[] = {
    Group("AssociatedComponent", 0x18, CountAt(0x17), BytesEach(2), AssociatedComponentFields),
};

} // namespace

constexpr Type Type045FirmwareInventory{45, Instances::Indexed, Later, Fields, Sections};
static_assert(IsWellFormed(Type045FirmwareInventory));

} // namespace Protocol::SMBIOS::Catalogue
