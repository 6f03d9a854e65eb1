// Type 38, IPMI Device Information.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row InterfaceTypeRows[] = {
    {0x00, "Unknown"},
    {0x01, "KCS: Keyboard Controller Style"},
    {0x02, "SMIC: Server Management Interface Chip"},
    {0x03, "BT: Block Transfer"},
};

constexpr Field Fields[] = {
    {0x04, "InterfaceType", 1, Decimal, V2_3, Enumeration(InterfaceTypeRows)},
    {0x05, "IPMISpecRev",   1, Decimal, V2_3, DecodedBy("IPMISpecRev")},
    {0x06, "I2CSlaveAddr",  1, Decimal, V2_3},
    {0x07, "NVStoreAddr",   1, Decimal, V2_3},
    {0x08, "BaseAddress",   8, Decimal, V2_3},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type038IpmiDevice{38, Instances::Shared, V2_3, Fields};

} // namespace Protocol::SMBIOS::Catalogue
