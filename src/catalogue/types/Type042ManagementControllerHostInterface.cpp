// Type 42, Management Controller Host Interface.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row InterfaceTypeRows[] = {
    {0x02, "KCS: Keyboard Controller Style"},
    {0x03, "8250 UART Register Compatible"},
    {0x04, "16450 UART Register Compatible"},
    {0x05, "16550/16550A UART Register Compatible"},
    {0x06, "16650/16650A UART Register Compatible"},
    {0x07, "16750/16750A UART Register Compatible"},
    {0x08, "16850/16850A UART Register Compatible"},
    {0x09, "I2C/SMBus"},
    {0x0A, "I3C"},
    {0x0B, "PCIe VDM"},
    {0x0C, "MMBI"},
    {0x0D, "PCC"},
    {0x0E, "UCIe"},
    {0x0F, "USB"},
    {0x40, "Network Host Interface"},
    {0xF0, "OEM-defined"},
};

constexpr Row ProtocolTypeRows[] = {
    {0x00, "Reserved"},
    {0x01, "Reserved"},
    {0x02, "IPMI"},
    {0x03, "MCTP"},
    {0x04, "Redfish over IP"},
    {0xF0, "OEM-defined"},
};

constexpr Field Fields[] = {
    {0x04, "InterfaceType", 1, Decimal, V2_7, "kind of interface", Enumeration(InterfaceTypeRows)},
};

constexpr Field DataFields[] = {
    {0x05, "InterfaceTypeSpecificDataLength", 1,              Decimal, V3_2, "length of the data behind it (at least 4)",                   In(Unit::Bytes)},
    {0x06, "InterfaceTypeSpecificData",       AsSaidAt(0x05), Hex,     V3_2, "data of the interface, in a form that `InterfaceType` fixes"},
};

constexpr Field OlderDataFields[] = {
    {0x05, "MCHostInterfaceData", RestOfRecord, Hex, V2_7, "data of the interface"},
};

constexpr Field BehindInterfaceTypeSpecificDataFields[] = {
    {0x00, "NumberOfProtocolRecords", 1, Decimal, V3_2, "number of protocol records"},
};

constexpr Field ProtocolRecordFields[] = {
    {0x00, "ProtocolType",                   1,              Decimal, V3_2, "protocol",                                                                 Enumeration(ProtocolTypeRows)},
    {0x01, "ProtocolTypeSpecificDataLength", 1,              Decimal, V3_2, "length of the data behind it (this byte and the one before not included)", In(Unit::Bytes)},
    {0x02, "ProtocolTypeSpecificData",       AsSaidAt(0x01), Hex,     V3_2, "data of the protocol"},
};

constexpr Section Sections[] = {
    FieldsOf(DataFields),
    FieldsBehind(BehindInterfaceTypeSpecificDataFields),
    Group("ProtocolRecord", Behind, CountAt(0x00), AsEachSaysAt(0x01, 2, 1), ProtocolRecordFields),
};

constexpr Section OlderSections[] = {
    FieldsOf(OlderDataFields),
};

constexpr Type Older{42, Instances::Indexed, Later, Fields, OlderSections};
static_assert(IsWellFormed(Older));

} // namespace

constexpr Type Type042ManagementControllerHostInterface{42, Instances::Indexed, Later, Fields, Sections, TableVersion{3, 2}, Older};
static_assert(IsWellFormed(Type042ManagementControllerHostInterface));

} // namespace Protocol::SMBIOS::Catalogue
