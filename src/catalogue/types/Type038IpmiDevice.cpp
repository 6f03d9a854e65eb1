// Type 38, IPMI Device Information.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row InterfaceTypeRows[] = {
    {0x00, "Unknown"},
    {0x01, "KCS: Keyboard Controller Style"},
    {0x02, "SMIC: Server Management Interface Chip"},
    {0x03, "BT: Block Transfer"},
    {0x04, "SSIF: SMBus System Interface", Later},
};

constexpr Row InterruptTriggerModeRows[] = {
    {0x00, "Edge"},
    {0x01, "Level"},
};

constexpr Row InterruptPolarityRows[] = {
    {0x00, "Active low"},
    {0x01, "Active high"},
};

constexpr Row InterruptInfoRows[] = {
    {0x00, "Not specified"},
    {0x01, "Specified"},
};

constexpr Row RegisterSpacingRows[] = {
    {0x00, "Successive byte boundaries"},
    {0x01, "32-bit boundaries"},
    {0x02, "16-byte boundaries"},
    {0x03, "Reserved"},
};

constexpr Part BaseAddressModifierInterruptInfoParts[] = {
    {"InterruptTriggerMode", 0, 0, Enumeration(InterruptTriggerModeRows)},
    {"InterruptPolarity",    1, 1, Enumeration(InterruptPolarityRows)},
    {"InterruptInfo",        3, 3, Enumeration(InterruptInfoRows)},
    {"LSBitForAddresses",    4, 4},
    {"RegisterSpacing",      6, 7, Enumeration(RegisterSpacingRows)},
};

constexpr Row NVStoreAddrSpecials[] = {{0xFF, "none"}};

constexpr Row InterruptNumberSpecials[] = {{0, "not specified or not supported"}};

constexpr Field Fields[] = {
    {0x04, "InterfaceType", 1, Decimal, V2_3, "interface of the management controller",     Enumeration(InterfaceTypeRows)},
    {0x05, "IPMISpecRev",   1, Decimal, V2_3, "revision of the IPMI specification",         DecodedBy(TableKind::IPMISpecRev)},
    {0x06, "I2CSlaveAddr",  1, Decimal, V2_3, "slave address on the I2C bus"},
    {0x07, "NVStoreAddr",   1, Decimal, V2_3, "address of the non-volatile storage device", Plain.Except(NVStoreAddrSpecials)},
    {0x08, "BaseAddress",   8, Decimal, V2_3, "base address of the interface"},
};

constexpr Field LaterFields[] = {
    {0x10, "BaseAddressModifierInterruptInfo", 1, Decimal, V2_4, "register spacing, lowest address bit and interrupt line; 0 for SSIF", Packed(BaseAddressModifierInterruptInfoParts)},
    {0x11, "InterruptNumber",                  1, Decimal, V2_4, "interrupt number",                                                    Plain.Except(InterruptNumberSpecials)},
};

constexpr Section Sections[] = {
    FieldsOf(LaterFields),
};

} // namespace

constexpr Type Type038IpmiDevice{38, Instances::Shared, V2_3, Fields, Sections};
static_assert(IsWellFormed(Type038IpmiDevice));

} // namespace Protocol::SMBIOS::Catalogue
