// Type 10, On Board Devices Information.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row DeviceTypeRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Video"},
    {0x04, "SCSI Controller"},
    {0x05, "Ethernet"},
    {0x06, "Token Ring"},
    {0x07, "Sound"},
    {0x08, "PATA Controller", V2_5},
    {0x09, "SATA Controller", V2_5},
    {0x0A, "SASController", V2_5},
};

constexpr Row OnBoardDeviceTypeRows[] = {
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
};

constexpr Row OnBoardDeviceStatusRows[] = {
    {0x00, "Disabled"},
    {0x01, "Enabled"},
};

constexpr Part DeviceTypeAndStatusParts[] = {
    {"OnBoardDeviceType",   0, 6, Enumeration(OnBoardDeviceTypeRows)},
    {"OnBoardDeviceStatus", 7, 7, Enumeration(OnBoardDeviceStatusRows)},
};

constexpr Field Fields[] = {
    {0x04, "DeviceType",        1,               Decimal, V2_3, "type of the first device; `OnBoardDevice[n]` of the newest catalogue has all", MaskedEnumeration(DeviceTypeRows)},
    {0x05, "DescriptionString", StringReference, String,  V2_3, "description of the first device"},
};

constexpr Field OnBoardDeviceFields[] = {
    {0x00, "DeviceTypeAndStatus", 1,               Decimal, V2_3, "device type and whether the device is enabled", Packed(DeviceTypeAndStatusParts)},
    {0x01, "DeviceDescription",   StringReference, String,  V2_3, "description text"},
};

constexpr Section Sections[] = {
    Group("OnBoardDevice", 0x04, AsManyAsFit, BytesEach(2), OnBoardDeviceFields),
};

} // namespace

constexpr Type Type010OnBoardDevices{10, Instances::Indexed, V2_3, Fields, Sections};
static_assert(IsWellFormed(Type010OnBoardDevices));

} // namespace Protocol::SMBIOS::Catalogue
