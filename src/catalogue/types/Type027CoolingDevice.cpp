// Type 27, Cooling Device.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row DeviceTypeRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Fan"},
    {0x04, "Centrifugal Blower"},
    {0x05, "Chip Fan"},
    {0x06, "Cabinet Fan"},
    {0x07, "Power Supply Fan"},
    {0x08, "Heat Pipe"},
    {0x09, "Integrated Refrigeration"},
    {0x10, "Active Cooling"},
    {0x11, "Passive Cooling"},
};

constexpr Row StatusRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "OK"},
    {0x04, "Non-critical"},
    {0x05, "Critical"},
    {0x06, "Non-recoverable"},
};

constexpr Part DeviceTypeAndStatusParts[] = {
    {"DeviceType", 0, 4, Enumeration(DeviceTypeRows)},
    {"Status",     5, 7, Enumeration(StatusRows)},
};

constexpr Row NominalSpeedSpecials[] = {{0x8000, "unknown or not rotating"}};

constexpr Field Fields[] = {
    {0x04, "TemperatureProbeHandle", 2,               Decimal, V2_2, "the probe that watches this device",                  HandleOf(28).Except(NoneIfFFFF)},
    {0x06, "DeviceTypeAndStatus",    1,               Decimal, V2_2, "kind and state",                                      Packed(DeviceTypeAndStatusParts)},
    {0x07, "CoolingUnitGroup",       1,               Decimal, V2_2, "group of devices that stand in for one another",      Plain.Except(InNoneIf0)},
    {0x08, "OEMDefined",             4,               Decimal, V2_2, "value of the OEM or firmware vendor"},
    {0x0C, "NominalSpeed",           2,               Decimal, V2_2, "nominal speed (only in a structure longer than 0Ch)", In(Unit::RevolutionsPerMinute).Except(NominalSpeedSpecials)},
    {0x0E, "Description",            StringReference, String,  V2_7, "what the device cools or where it sits"},
};

} // namespace

constexpr Type Type027CoolingDevice{27, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type027CoolingDevice));

} // namespace Protocol::SMBIOS::Catalogue
