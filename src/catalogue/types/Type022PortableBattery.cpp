// Type 22, Portable Battery.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row DeviceChemistryRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Lead Acid"},
    {0x04, "Nickel Cadmium"},
    {0x05, "Nickel metal hydride"},
    {0x06, "Lithium-ion"},
    {0x07, "Zinc air"},
    {0x08, "Lithium Polymer"},
};

constexpr Part SBDSManufactureDateParts[] = {
    {"SBDSManufactureDay",   0, 4},
    {"SBDSManufactureMonth", 5, 8},
    {"SBDSManufactureYear",  9, 15},
};

constexpr Field Fields[] = {
    {0x04, "Location",                  StringReference, String,  V2_1},
    {0x05, "Manufacturer",              StringReference, String,  V2_1},
    {0x06, "ManufactureDate",           StringReference, String,  V2_1},
    {0x07, "SerialNumber",              StringReference, String,  V2_1},
    {0x08, "DeviceName",                StringReference, String,  V2_1},
    {0x09, "DeviceChemistry",           1,               Decimal, V2_1, Enumeration(DeviceChemistryRows)},
    {0x0A, "DesignCapacity",            2,               Decimal, V2_1},
    {0x0C, "DesignVoltage",             2,               Decimal, V2_1},
    {0x0E, "SBDSVersionNumber",         StringReference, String,  V2_1},
    {0x0F, "MaximumErrorInBatteryData", 1,               Decimal, V2_1},
    {0x10, "SBDSSerialNumber",          2,               Decimal, V2_2},
    {0x12, "SBDSManufactureDate",       2,               Decimal, V2_2, Packed(SBDSManufactureDateParts)},
    {0x14, "SBDSDeviceChemistry",       StringReference, String,  V2_2},
    {0x15, "DesignCapacityMultiplier",  1,               Decimal, V2_2},
    {0x16, "OEMSpecific",               4,               Decimal, V2_2},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type022PortableBattery{22, Instances::Indexed, Later, Fields};

} // namespace Protocol::SMBIOS::Catalogue
