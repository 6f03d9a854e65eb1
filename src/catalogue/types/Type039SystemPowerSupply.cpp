// Type 39, System Power Supply.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row NoYesRows[] = {
    {0x00, "No"},
    {0x01, "Yes"},
};

constexpr Row InputVoltageRangeSwitchingRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Manual"},
    {0x04, "Auto-switch"},
    {0x05, "Wide range"},
    {0x06, "Not applicable"},
};

constexpr Row StatusRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "OK"},
    {0x04, "Non-critical"},
    {0x05, "Critical"},
};

constexpr Row PowerSupplyTypeRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Linear"},
    {0x04, "Switching"},
    {0x05, "Battery"},
    {0x06, "UPS"},
    {0x07, "Converter"},
    {0x08, "Regulator"},
};

constexpr Part PowerSupplyCharacteristicsParts[] = {
    {"HotReplaceable",             0, 0, Enumeration(NoYesRows)},
    {"Present",                    1, 1, Enumeration(NoYesRows)},
    {"Unplugged",                  2, 2, Enumeration(NoYesRows)},
    {"InputVoltageRangeSwitching", 3, 6, Enumeration(InputVoltageRangeSwitchingRows)},
    {"Status",                     7, 9, Enumeration(StatusRows)},
    {"PowerSupplyType",            10, 13, Enumeration(PowerSupplyTypeRows)},
};

constexpr Field Fields[] = {
    {0x04, "PowerUnitGroup",             1,               Decimal, V2_3, "group of supplies that stand in for one another", Plain.Except(InNoneIf0)},
    {0x05, "Location",                   StringReference, String,  V2_3, "where the supply sits"},
    {0x06, "DeviceName",                 StringReference, String,  V2_3, "name of the supply"},
    {0x07, "Manufacturer",               StringReference, String,  V2_3, "manufacturer text"},
    {0x08, "SerialNumber",               StringReference, String,  V2_3, "serial number"},
    {0x09, "AssetTagNumber",             StringReference, String,  V2_3, "asset tag"},
    {0x0A, "ModelPartNumber",            StringReference, String,  V2_3, "part number for ordering"},
    {0x0B, "RevisionLevel",              StringReference, String,  V2_3, "revision text"},
    {0x0C, "MaxPowerCapacity",           2,               Decimal, V2_3, "greatest sustained output",                       In(Unit::Watts).Except(UnknownIf8000)},
    {0x0E, "PowerSupplyCharacteristics", 2,               Decimal, V2_3, "kind and state",                                  Packed(PowerSupplyCharacteristicsParts)},
    {0x10, "InputVoltageProbeHandle",    2,               Decimal, V2_3, "the voltage probe of the input",                  HandleOf(26).Except(NoneIfFFFF)},
    {0x12, "CoolingDeviceHandle",        2,               Decimal, V2_3, "the cooling device",                              HandleOf(27).Except(NoneIfFFFF)},
    {0x14, "InputCurrentProbeHandle",    2,               Decimal, V2_3, "the current probe of the input",                  HandleOf(29).Except(NoneIfFFFF)},
};

} // namespace

constexpr Type Type039SystemPowerSupply{39, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type039SystemPowerSupply));

} // namespace Protocol::SMBIOS::Catalogue
