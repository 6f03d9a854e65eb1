// Type 0, BIOS Information.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row BIOSCharacteristicsRows[] = {
    {2, "Unknown", Later},
    {3, "BIOS characteristics not supported", Later},
    {4, "ISA"},
    {5, "MCA"},
    {6, "EISA"},
    {7, "PCI"},
    {8, "PCCard"},
    {9, "Plug and Play"},
    {10, "APM"},
    {11, "BIOS is upgradeable"},
    {12, "BIOS shadowing"},
    {13, "VL/VESA"},
    {14, "ESCD support"},
    {15, "BOOT from CD"},
    {16, "Selectable BOOT"},
    {17, "BIOS ROM is socketed"},
    {18, "BOOT from PC card"},
    {19, "EDD specification"},
    {20, "Int 13h japanese floppy for NEC 9800 1.2 MB"},
    {21, "Int 13h japanese floppy for Toshiba 1.2 MB"},
    {22, "Int 13h 5.25 / 360 KB floppy service"},
    {23, "Int 13h 5.25 / 1.2 MB floppy service"},
    {24, "Int 13h 3.5 / 720 KB floppy service"},
    {25, "Int 13h 3.5 / 2.88 MB floppy service"},
    {26, "Int 5h print screen service"},
    {27, "Int 9h 8042 keyboard service"},
    {28, "Int 14h serial service"},
    {29, "Int 17h printer service"},
    {30, "Int 10h  CGA mono video service"},
    {31, "NEC PC - 98"},
};

constexpr Row BIOSCharacteristicsExtensionByte1Rows[] = {
    {0, "ACPI"},
    {1, "USB Legacy"},
    {2, "AGP"},
    {3, "I2O boot"},
    {4, "LS-120 boot"},
    {5, "ATAPI ZIP Drive boot"},
    {6, "1394 boot"},
    {7, "Smart Battery"},
};

constexpr Row BIOSCharacteristicsExtensionByte2Rows[] = {
    {0, "BIOS Boot Specification"},
    {1, "Function key-initiated Network Service boot"},
    {2, "Enable Targeted Content Distribution"},
    {3, "UEFI Specification", V2_7},
    {4, "Virtualized Platform", V2_7},
    {5, "Manufacturing mode supported", Later},
    {6, "Manufacturing mode enabled", Later},
};

constexpr Row ExtendedRomSizeUnitRows[] = {
    {0x00, "Megabytes"},
    {0x01, "Gigabytes"},
};

constexpr Part ExtendedBIOSRomSizeParts[] = {
    {"ExtendedRomSize",     0, 13},
    {"ExtendedRomSizeUnit", 14, 15, Enumeration(ExtendedRomSizeUnitRows)},
};

constexpr Row BIOSRomSizeSpecials[] = {{0xFF, "see `ExtendedBIOSRomSize`"}};

constexpr Field Fields[] = {
    {0x04, "BIOSVendor",                        StringReference, String,  V2_3, "vendor of the firmware"},
    {0x05, "BIOSVersion",                       StringReference, String,  V2_3, "firmware version text"},
    {0x06, "BIOSStartAddressSegment",           2,               Decimal, V2_3, "segment of the firmware start address"},
    {0x08, "BIOSReleaseDate",                   StringReference, String,  V2_3, "release date text"},
    {0x09, "BIOSRomSize",                       1,               Decimal, V2_3, "size of the firmware ROM",                                   DecodedBy(TableKind::BIOSRomSize).In(Unit::Kilobytes).Except(BIOSRomSizeSpecials)},
    {0x0A, "BIOSCharacteristics",               8,               Decimal, V2_3, "what the firmware supports",                                 Bits(BIOSCharacteristicsRows)},
    {0x12, "BIOSCharacteristicsExtensionByte1", 1,               Decimal, V2_3, "more of it",                                                 Bits(BIOSCharacteristicsExtensionByte1Rows)},
    {0x13, "BIOSCharacteristicsExtensionByte2", 1,               Decimal, V2_3, "more of it",                                                 Bits(BIOSCharacteristicsExtensionByte2Rows)},
    {0x14, "SystemBiosMajorRelease",            1,               Decimal, V2_4, "firmware major release",                                     Plain.Except(NotSupportedIfFF)},
    {0x15, "SystemBiosMinorRelease",            1,               Decimal, V2_4, "firmware minor release",                                     Plain.Except(NotSupportedIfFF)},
    {0x16, "ECFirmwareMajorRelease",            1,               Decimal, V2_4, "embedded controller firmware major release",                 Plain.Except(NotSupportedIfFF)},
    {0x17, "ECFirmwareMinorRelease",            1,               Decimal, V2_4, "embedded controller firmware minor release",                 Plain.Except(NotSupportedIfFF)},
    {0x18, "ExtendedBIOSRomSize",               2,               Decimal, V3_1, "size of the firmware ROM (valid when `BIOSRomSize` is FFh)", Packed(ExtendedBIOSRomSizeParts).In(Unit::MegabytesOrGigabytes)},
};

constexpr Field VendorFields[] = {
    {0x0E, "BIOSVendorCharacteristics",   2, Hex, V2_0, "bits 32 to 47 of `BIOSCharacteristics`, the firmware vendor's own"},
    {0x10, "SystemVendorCharacteristics", 2, Hex, V2_0, "bits 48 to 63, the system vendor's own"},
};

constexpr Section Sections[] = {
    FieldsOf(VendorFields),
};

} // namespace

constexpr Type Type000BiosInformation{0, Instances::Shared, V2_3, Fields, Sections};
static_assert(IsWellFormed(Type000BiosInformation));

} // namespace Protocol::SMBIOS::Catalogue
