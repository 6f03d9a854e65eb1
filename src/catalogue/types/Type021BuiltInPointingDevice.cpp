// Type 21, Built-in Pointing Device.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row TypeRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Mouse"},
    {0x04, "Track Ball"},
    {0x05, "Track Point"},
    {0x06, "Glide Point"},
    {0x07, "Touch Pad"},
    {0x08, "Touch Screen"},
    {0x09, "Optical Sensor"},
};

constexpr Row InterfaceRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Serial"},
    {0x04, "PS/2"},
    {0x05, "Infrared"},
    {0x06, "HP-HIL"},
    {0x07, "Bus mouse"},
    {0x08, "ADB (Apple Desktop Bus)"},
    {0xA0, "Bus mouse DB-9"},
    {0xA1, "Bus mouse micro-DIN"},
    {0xA2, "USB"},
    {0xA3, "I2C"},
    {0xA4, "SPI"},
};

constexpr Field Fields[] = {
    {0x04, "Type",            1, Decimal, V2_1, "kind of pointing device",    Enumeration(TypeRows)},
    {0x05, "Interface",       1, Decimal, V2_1, "how the device is attached", Enumeration(InterfaceRows)},
    {0x06, "NumberOfButtons", 1, Decimal, V2_1, "number of buttons"},
};

} // namespace

constexpr Type Type021BuiltInPointingDevice{21, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type021BuiltInPointingDevice));

} // namespace Protocol::SMBIOS::Catalogue
