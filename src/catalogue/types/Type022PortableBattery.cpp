// Type 22, Portable Battery.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

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
    {"SBDSManufactureYear",  9, 15, In(Unit::YearsSince1980)},
};

constexpr Row ManufactureDateSpecials[] = {{0, "see `SBDSManufactureDate`"}};

constexpr Row SerialNumberSpecials[] = {{0, "see `SBDSSerialNumber`"}};

constexpr Row DeviceChemistrySpecials[] = {{0x02, "see `SBDSDeviceChemistry`"}};

constexpr Field Fields[] = {
    {0x04, "Location",                  StringReference, String,  V2_1, "where the battery sits"},
    {0x05, "Manufacturer",              StringReference, String,  V2_1, "manufacturer text"},
    {0x06, "ManufactureDate",           StringReference, String,  V2_1, "date of manufacture",                                                                    Plain.Except(ManufactureDateSpecials)},
    {0x07, "SerialNumber",              StringReference, String,  V2_1, "serial number",                                                                          Plain.Except(SerialNumberSpecials)},
    {0x08, "DeviceName",                StringReference, String,  V2_1, "name of the battery"},
    {0x09, "DeviceChemistry",           1,               Decimal, V2_1, "chemistry",                                                                              Enumeration(DeviceChemistryRows).Except(DeviceChemistrySpecials)},
    {0x0A, "DesignCapacity",            2,               Decimal, V2_1, "design capacity (to be multiplied by `DesignCapacityMultiplier` where that is present)", In(Unit::MilliwattHours).Except(UnknownIf0)},
    {0x0C, "DesignVoltage",             2,               Decimal, V2_1, "design voltage",                                                                         In(Unit::Millivolts).Except(UnknownIf0)},
    {0x0E, "SBDSVersionNumber",         StringReference, String,  V2_1, "supported version of the Smart Battery Data Specification"},
    {0x0F, "MaximumErrorInBatteryData", 1,               Decimal, V2_1, "greatest error of the reported energy",                                                  In(Unit::Percent).Except(UnknownIfFF)},
    {0x10, "SBDSSerialNumber",          2,               Decimal, V2_2, "serial number of a smart battery; valid if `SerialNumber` has no string"},
    {0x12, "SBDSManufactureDate",       2,               Decimal, V2_2, "date of manufacture of a smart battery; valid if `ManufactureDate` has no string",       Packed(SBDSManufactureDateParts)},
    {0x14, "SBDSDeviceChemistry",       StringReference, String,  V2_2, "chemistry text of a smart battery; valid if `DeviceChemistry` is 02h"},
    {0x15, "DesignCapacityMultiplier",  1,               Decimal, V2_2, "factor of `DesignCapacity`"},
    {0x16, "OEMSpecific",               4,               Decimal, V2_2, "value of the OEM or firmware vendor"},
};

} // namespace

constexpr Type Type022PortableBattery{22, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type022PortableBattery));

} // namespace Protocol::SMBIOS::Catalogue
