// Type 43, TPM Device.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row CharacteristicsRows[] = {
    {2, "TPM Device Characteristics are not supported"},
    {3, "Family configurable via firmware update"},
    {4, "Family configurable via platform software support"},
    {5, "Family configurable via OEM proprietary mechanism"},
};

constexpr Field Fields[] = {
    {0x04, "VendorID",         4,               Hex,      V3_1, "TCG vendor identifier of four characters (filled with 00h)",                                                                       In(Unit::Ascii)},
    {0x08, "MajorSpecVersion", 1,               Decimal,  V3_1, "major TPM version"},
    {0x09, "MinorSpecVersion", 1,               Decimal,  V3_1, "minor TPM version"},
    {0x0A, "FirmwareVersion1", 4,               Decimal,  V3_1, "firmware version; for major version 2 the upper 32 bits of the vendor's value, for major version 1 the four bytes of TPM_VERSION"},
    {0x0E, "FirmwareVersion2", 4,               Decimal,  V3_1, "for major version 2 the lower 32 bits of the vendor's value, for major version 1 zero"},
    {0x12, "Description",      StringReference, String,   V3_1, "description text"},
    {0x13, "Characteristics",  8,               Unsigned, V3_1, "characteristics",                                                                                                                  Bits(CharacteristicsRows)},
    {0x1B, "OEMDefined",       4,               Decimal,  V3_1, "value of the OEM or firmware vendor"},
};

} // namespace

constexpr Type Type043TpmDevice{43, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type043TpmDevice));

} // namespace Protocol::SMBIOS::Catalogue
