// Type 9, System Slots.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row SlotTypeRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "ISA"},
    {0x04, "MCA"},
    {0x05, "EISA"},
    {0x06, "PCI"},
    {0x07, "PC Card (PCMCIA)"},
    {0x08, "VL-VESA"},
    {0x09, "Proprietary"},
    {0x0A, "Processor Card Slot"},
    {0x0B, "Proprietary Memory Card Slot"},
    {0x0C, "I/O Riser Card Slot"},
    {0x0D, "NuBus"},
    {0x0E, "PCI - 66MHz Capable"},
    {0x0F, "AGP"},
    {0x10, "AGP 2X"},
    {0x11, "AGP 4X"},
    {0x12, "PCI-X"},
    {0x13, "AGP 8X"},
    {0x14, "M.2 Socket 1-DP (Mechanical Key A)", Later},
    {0x15, "M.2 Socket 1-SD (Mechanical Key E)", Later},
    {0x16, "M.2 Socket 2 (Mechanical Key B)", Later},
    {0x17, "M.2 Socket 3 (Mechanical Key M)", Later},
    {0x18, "MXM Type I", Later},
    {0x19, "MXM Type II", Later},
    {0x1A, "MXM Type III (standard connector)", Later},
    {0x1B, "MXM Type III (HE connector)", Later},
    {0x1C, "MXM Type IV", Later},
    {0x1D, "MXM 3.0 Type A", Later},
    {0x1E, "MXM 3.0 Type B", Later},
    {0x1F, "PCI Express Gen 2 SFF-8639 (U.2)", Later},
    {0x20, "PCI Express Gen 3 SFF-8639 (U.2)", Later},
    {0x21, "PCI Express Mini 52-pin with bottom-side keep-outs", Later},
    {0x22, "PCI Express Mini 52-pin without bottom-side keep-outs", Later},
    {0x23, "PCI Express Mini 76-pin", Later},
    {0x24, "PCI Express Gen 4 SFF-8639 (U.2)", Later},
    {0x25, "PCI Express Gen 5 SFF-8639 (U.2)", Later},
    {0x26, "OCP NIC 3.0 Small Form Factor (SFF)", Later},
    {0x27, "OCP NIC 3.0 Large Form Factor (LFF)", Later},
    {0x28, "OCP NIC Prior to 3.0", Later},
    {0x30, "CXL Flexbus 1.0", Later},
    {0xA0, "PC-98/C20"},
    {0xA1, "PC-98/C24"},
    {0xA2, "PC-98/E"},
    {0xA3, "PC-98/Local Bus"},
    {0xA4, "PC-98/Card"},
    {0xA5, "PCI Express", V2_4},
    {0xA6, "PCI Express x1", V2_6},
    {0xA7, "PCI Express x2", V2_6},
    {0xA8, "PCI Express x4", V2_6},
    {0xA9, "PCI Express x8", V2_6},
    {0xAA, "PCI Express x16", V2_6},
    {0xAB, "PCI Express Gen 2", Later},
    {0xAC, "PCI Express Gen 2 x1", V2_7},
    {0xAD, "PCI Express Gen 2 x2", V2_7},
    {0xAE, "PCI Express Gen 2 x4", V2_7},
    {0xAF, "PCI Express Gen 2 x8", V2_7},
    {0xB0, "PCI Express Gen 2 x16", V2_7},
    {0xB1, "PCI Express Gen 3", V2_7},
    {0xB2, "PCI Express Gen 3 x1", V2_7},
    {0xB3, "PCI Express Gen 3 x2", V2_7},
    {0xB4, "PCI Express Gen 3 x4", V2_7},
    {0xB5, "PCI Express Gen 3 x8", V2_7},
    {0xB6, "PCI Express Gen 3 x16", V2_7},
    {0xB8, "PCI Express Gen 4", Later},
    {0xB9, "PCI Express Gen 4 x1", Later},
    {0xBA, "PCI Express Gen 4 x2", Later},
    {0xBB, "PCI Express Gen 4 x4", Later},
    {0xBC, "PCI Express Gen 4 x8", Later},
    {0xBD, "PCI Express Gen 4 x16", Later},
    {0xBE, "PCI Express Gen 5", Later},
    {0xBF, "PCI Express Gen 5 x1", Later},
    {0xC0, "PCI Express Gen 5 x2", Later},
    {0xC1, "PCI Express Gen 5 x4", Later},
    {0xC2, "PCI Express Gen 5 x8", Later},
    {0xC3, "PCI Express Gen 5 x16", Later},
    {0xC4, "PCI Express Gen 6 and Beyond", Later},
    {0xC5, "Enterprise and Datacenter 1U E1 Form Factor Slot (EDSFF E1.S, E1.L)", Later},
    {0xC6, "Enterprise and Datacenter 3 inch E3 Form Factor Slot (EDSFF E3.S, E3.L)", Later},
};

constexpr Row SlotDataBusWidthRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "8 bit"},
    {0x04, "16 bit"},
    {0x05, "32 bit"},
    {0x06, "64 bit"},
    {0x07, "128 bit"},
    {0x08, "1x or x1", V2_4},
    {0x09, "2x or x2", V2_4},
    {0x0A, "4x or x4", V2_4},
    {0x0B, "8x or x8", V2_4},
    {0x0C, "12x or x12", V2_4},
    {0x0D, "16x or x16", V2_4},
    {0x0E, "32x or x32", V2_4},
};

constexpr Row CurrentUsageRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Available"},
    {0x04, "In use"},
    {0x05, "Unavailable", Later},
};

constexpr Row SlotLengthRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Short Length"},
    {0x04, "Long Length"},
    {0x05, "2.5 inch drive form factor", Later},
    {0x06, "3.5 inch drive form factor", Later},
};

constexpr Row SlotCharacteristics1Rows[] = {
    {0, "Characteristics unknown", Later},
    {1, "Provides 5.0 Volts"},
    {2, "Provides 3.3 Volts"},
    {3, "Slot 92 opening is shared with another slot"},
    {4, "PC Card slot supports PC Card-16"},
    {5, "PC Card slot supports CardBus"},
    {6, "PC Card slot supports Zoom Video"},
    {7, "PC Card slot supports Modem Ring Resume"},
};

constexpr Row SlotCharacteristics2Rows[] = {
    {0, "PCI slot supports Power Management Enable"},
    {1, "Slot supports hot-plug devices"},
    {2, "PCI slot supports SMBus signal"},
    {3, "PCIe slot supports bifurcation", Later},
    {4, "Slot supports async/surprise removal", Later},
    {5, "Flexbus slot, CXL 1.0 capable", Later},
    {6, "Flexbus slot, CXL 2.0 capable", Later},
    {7, "Flexbus slot, CXL 3.0 capable", Later},
};

constexpr Part PeerDeviceFunctionNumberParts[] = {
    {"PeerFunctionNumber", 0, 2},
    {"PeerDeviceNumber",   3, 7},
};

constexpr Row SlotPhysicalWidthRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "8 bit"},
    {0x04, "16 bit"},
    {0x05, "32 bit"},
    {0x06, "64 bit"},
    {0x07, "128 bit"},
    {0x08, "1x or x1"},
    {0x09, "2x or x2"},
    {0x0A, "4x or x4"},
    {0x0B, "8x or x8"},
    {0x0C, "12x or x12"},
    {0x0D, "16x or x16"},
    {0x0E, "32x or x32"},
};

constexpr Row SlotHeightRows[] = {
    {0x00, "Not applicable"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Full height"},
    {0x04, "Low-profile"},
};

constexpr Row SlotInformationSpecials[] = {{0, "no PCI Express slot"}};

constexpr Field Fields[] = {
    {0x04, "SlotDesignation",      StringReference, String,  V2_3, "slot name"},
    {0x05, "SlotType",             1,               Decimal, V2_3, "slot type",                        Enumeration(SlotTypeRows)},
    {0x06, "SlotDataBusWidth",     1,               Decimal, V2_3, "bus width",                        Enumeration(SlotDataBusWidthRows)},
    {0x07, "CurrentUsage",         1,               Decimal, V2_3, "use of the slot",                  Enumeration(CurrentUsageRows)},
    {0x08, "SlotLength",           1,               Decimal, V2_3, "slot length",                      Enumeration(SlotLengthRows)},
    {0x09, "SlotId",               2,               Decimal, V2_3, "slot identifier"},
    {0x0B, "SlotCharacteristics1", 1,               Decimal, V2_3, "characteristics 1",                Bits(SlotCharacteristics1Rows)},
    {0x0C, "SlotCharacteristics2", 1,               Decimal, V2_3, "characteristics 2",                Bits(SlotCharacteristics2Rows)},
    {0x0D, "SegmentGroupNumber",   2,               Decimal, V2_6, "PCI segment group",                Plain.Except(NotApplicableIfFFFF)},
    {0x0F, "BusNumber",            1,               Decimal, V2_6, "PCI bus",                          Plain.Except(NotApplicableIfFF)},
    {0x10, "DeviceNumber",         1,               Decimal, V2_6, "PCI device and function",          In(Unit::DeviceAndFunction).Except(NotApplicableIfFF)},
    {0x11, "DataBusWidth",         1,               Decimal, V3_2, "electrical bus width of the slot"},
    {0x12, "PeerGroupingCount",    1,               Decimal, V3_2, "number of peer groups"},
};

constexpr Field PeerGroupFields[] = {
    {0x00, "PeerSegmentGroupNumber",   2, Decimal, V3_2, "PCI segment group of the peer"},
    {0x02, "PeerBusNumber",            1, Decimal, V3_2, "PCI bus of the peer"},
    {0x03, "PeerDeviceFunctionNumber", 1, Decimal, V3_2, "PCI device and function of the peer", Packed(PeerDeviceFunctionNumberParts)},
    {0x04, "PeerDataBusWidth",         1, Decimal, V3_2, "electrical bus width of the peer"},
};

constexpr Field BehindPeerGroupFields[] = {
    {0x00, "SlotInformation",   1, Decimal, V3_4, "PCI Express generation",     Plain.Except(SlotInformationSpecials)},
    {0x01, "SlotPhysicalWidth", 1, Decimal, V3_4, "physical width of the slot", Enumeration(SlotPhysicalWidthRows)},
    {0x02, "SlotPitch",         2, Decimal, V3_4, "pitch of the slot",          In(Unit::HundredthsOfMillimetre).Except(UnknownIf0)},
    {0x04, "SlotHeight",        1, Decimal, V3_5, "tallest card that fits",     Enumeration(SlotHeightRows)},
};

constexpr Section Sections[] = {
    Group("PeerGroup", 0x13, CountAt(0x12), BytesEach(5), PeerGroupFields),
    FieldsBehind(BehindPeerGroupFields),
};

} // namespace

constexpr Type Type009SystemSlots{9, Instances::Indexed, V2_3, Fields, Sections};
static_assert(IsWellFormed(Type009SystemSlots));

} // namespace Protocol::SMBIOS::Catalogue
