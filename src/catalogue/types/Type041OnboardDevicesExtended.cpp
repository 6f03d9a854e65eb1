// Type 41, Onboard Devices Extended Information.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row TypeOfDeviceRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Video"},
    {0x04, "SCSI Controller"},
    {0x05, "Ethernet"},
    {0x06, "Token Ring"},
    {0x07, "Sound"},
    {0x08, "PATA Controller"},
    {0x09, "SATA Controller"},
    {0x0A, "SAS Controller"},
    {0x0B, "Wireless LAN"},
    {0x0C, "Bluetooth"},
    {0x0D, "WWAN"},
    {0x0E, "eMMC (embedded Multi-Media Controller)"},
    {0x0F, "NVMe Controller"},
    {0x10, "UFS Controller"},
};

constexpr Row DeviceStatusRows[] = {
    {0x00, "Disabled"},
    {0x01, "Enabled"},
};

constexpr Part DeviceTypeParts[] = {
    {"TypeOfDevice", 0, 6, Enumeration(TypeOfDeviceRows)},
    {"DeviceStatus", 7, 7, Enumeration(DeviceStatusRows)},
};

constexpr Part DeviceFunctionNumberParts[] = {
    {"FunctionNumber", 0, 2},
    {"DeviceNumber",   3, 7},
};

constexpr Field Fields[] = {
    {0x04, "ReferenceDesignation", StringReference, String,  V2_6, "name of the device on the board"},
    {0x05, "DeviceType",           1,               Decimal, V2_6, "kind of device and whether it is enabled",  Packed(DeviceTypeParts)},
    {0x06, "DeviceTypeInstance",   1,               Decimal, V2_6, "number among the devices of the same kind"},
    {0x07, "SegmentGroupNumber",   2,               Decimal, V2_6, "PCI segment group",                         Plain.Except(NotApplicableIfFFFF)},
    {0x09, "BusNumber",            1,               Decimal, V2_6, "PCI bus",                                   Plain.Except(NotApplicableIfFF)},
    {0x0A, "DeviceFunctionNumber", 1,               Decimal, V2_6, "PCI device and function",                   Packed(DeviceFunctionNumberParts).Except(NotApplicableIfFF)},
};

} // namespace

constexpr Type Type041OnboardDevicesExtended{41, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type041OnboardDevicesExtended));

} // namespace Protocol::SMBIOS::Catalogue
