// Type 9, System Slots.

#include "catalogue/Types.h"

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
};

constexpr Row SlotLengthRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Short Length"},
    {0x04, "Long Length"},
};

constexpr Row SlotCharacteristics1Rows[] = {
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
};

constexpr Field Fields[] = {
    {0x04, "SlotDesignation",      StringReference, String,  V2_3},
    {0x05, "SlotType",             1,               Decimal, V2_3, Enumeration(SlotTypeRows)},
    {0x06, "SlotDataBusWidth",     1,               Decimal, V2_3, Enumeration(SlotDataBusWidthRows)},
    {0x07, "CurrentUsage",         1,               Decimal, V2_3, Enumeration(CurrentUsageRows)},
    {0x08, "SlotLength",           1,               Decimal, V2_3, Enumeration(SlotLengthRows)},
    {0x09, "SlotId",               2,               Decimal, V2_3},
    {0x0B, "SlotCharacteristics1", 1,               Decimal, V2_3, Bits(8, SlotCharacteristics1Rows)},
    {0x0C, "SlotCharacteristics2", 1,               Decimal, V2_3, Bits(8, SlotCharacteristics2Rows)},
    {0x0D, "SegmentGroupNumber",   2,               Decimal, V2_6},
    {0x0F, "BusNumber",            1,               Decimal, V2_6},
    {0x10, "DeviceNumber",         1,               Decimal, V2_6},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type009SystemSlots{9, Instances::Indexed, V2_3, Fields};

} // namespace Protocol::SMBIOS::Catalogue
