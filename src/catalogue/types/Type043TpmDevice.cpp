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
    {0x04, "VendorID",         4,               Hex,      V3_1},
    {0x08, "MajorSpecVersion", 1,               Decimal,  V3_1},
    {0x09, "MinorSpecVersion", 1,               Decimal,  V3_1},
    {0x0A, "FirmwareVersion1", 4,               Decimal,  V3_1},
    {0x0E, "FirmwareVersion2", 4,               Decimal,  V3_1},
    {0x12, "Description",      StringReference, String,   V3_1},
    {0x13, "Characteristics",  8,               Unsigned, V3_1, Bits(64, CharacteristicsRows)},
    {0x1B, "OEMDefined",       4,               Decimal,  V3_1},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type043TpmDevice{43, Instances::Indexed, Later, Fields};

} // namespace Protocol::SMBIOS::Catalogue
