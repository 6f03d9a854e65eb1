// Type 3, System Enclosure or Chassis.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row ChassisTypeRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Desktop"},
    {0x04, "Low Profile Desktop"},
    {0x05, "Pizza Box"},
    {0x06, "Mini Tower"},
    {0x07, "Tower"},
    {0x08, "Portable"},
    {0x09, "LapTop"},
    {0x0A, "Notebook"},
    {0x0B, "Hand Held"},
    {0x0C, "Docking Station"},
    {0x0D, "All in One"},
    {0x0E, "Sub Notebook"},
    {0x0F, "Space-saving"},
    {0x10, "Lunch Box"},
    {0x11, "Main Server Chassis"},
    {0x12, "Expansion Chassis"},
    {0x13, "SubChassis"},
    {0x14, "Bus Expansion Chassis"},
    {0x15, "Peripheral Chassis"},
    {0x16, "RAID Chassis"},
    {0x17, "Rack Mount Chassis"},
    {0x18, "SealedCase PC"},
    {0x19, "Multi-system chassis"},
    {0x1A, "CompactPCI", V2_5},
    {0x1B, "AdvancedTCA", V2_5},
    {0x1C, "Blade", V2_7},
    {0x1D, "Blade Enclosure", V2_7},
    {0x1E, "Tablet", Later},
    {0x1F, "Convertible", Later},
    {0x20, "Detachable", Later},
    {0x21, "IoT Gateway", Later},
    {0x22, "Embedded PC", Later},
    {0x23, "Mini PC", Later},
    {0x24, "Stick PC", Later},
};

constexpr Row ChassisStateRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Safe"},
    {0x04, "Warning"},
    {0x05, "Critical"},
    {0x06, "Non Recoverable"},
};

constexpr Row SecurityStatusRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "None"},
    {0x04, "External interface locked out"},
    {0x05, "External interface enabled"},
};

constexpr Row ChassisLockRows[] = {
    {0x00, "Not present, or unknown"},
    {0x01, "Present"},
};

constexpr Part ChassisTypeAndLockParts[] = {
    {"ChassisLock", 7, 7, Enumeration(ChassisLockRows)},
};

constexpr Row RackTypeRows[] = {
    {0x00, "Unspecified"},
    {0x01, "OU (Open Rack Unit)"},
};

constexpr Row ContainedElementTypeSelectRows[] = {
    {0x00, "SMBIOS baseboard type"},
    {0x01, "SMBIOS structure type"},
};

constexpr Part ContainedElementTypeParts[] = {
    {"ContainedElementTypeNumber", 0, 6},
    {"ContainedElementTypeSelect", 7, 7, Enumeration(ContainedElementTypeSelectRows)},
};

constexpr Row HeightSpecials[] = {
    {0, "not given"},
    {0xFF, "see `RackHeight`", Later},
};

constexpr Field Fields[] = {
    {0x04, "Manufacturer",                 StringReference, String,  V2_3, "chassis manufacturer"},
    {0x05, "ChassisType",                  1,               Decimal, V2_3, "chassis type",                                                                    MaskedEnumeration(ChassisTypeRows)},
    {0x06, "Version",                      StringReference, String,  V2_3, "version text"},
    {0x07, "SerialNo",                     StringReference, String,  V2_3, "serial number"},
    {0x08, "AssetTagNo",                   StringReference, String,  V2_3, "asset tag"},
    {0x09, "BootupState",                  1,               Decimal, V2_3, "state at the last boot",                                                          Enumeration(ChassisStateRows)},
    {0x0A, "PowerSupplyState",             1,               Decimal, V2_3, "power supply state at the last boot",                                             Enumeration(ChassisStateRows)},
    {0x0B, "ThermalState",                 1,               Decimal, V2_3, "thermal state at the last boot",                                                  Enumeration(ChassisStateRows)},
    {0x0C, "SecurityStatus",               1,               Decimal, V2_3, "security state at the last boot",                                                 Enumeration(SecurityStatusRows)},
    {0x0D, "OEMdefined",                   4,               Decimal, V2_3, "OEM value"},
    {0x11, "Height",                       1,               Decimal, V2_3, "height",                                                                          In(Unit::RackUnits).Except(HeightSpecials)},
    {0x12, "NumberofPowerCords",           1,               Decimal, V2_3, "number of power cords",                                                           Plain.Except(NotGivenIf0)},
    {0x13, "ContainedElementCount",        1,               Decimal, V2_3, "number of `ContainedElement` records"},
    {0x14, "ContainedElementRecordLength", 1,               Decimal, V2_3, "length of a `ContainedElement` record",                                           In(Unit::Bytes)},
    {0x15, "ContainedElements",            1,               Decimal, V2_3, "first byte of the records, or, where there are none, of what stands behind them", Plain, CountAt(0x13)},
};

constexpr Field LockFields[] = {
    {0x05, "ChassisTypeAndLock", 1, Decimal, V2_0, "the byte of `ChassisType`, for its bit 7", Packed(ChassisTypeAndLockParts)},
};

constexpr Field ContainedElementFields[] = {
    {0x00, "ContainedElementType",    1, Decimal, V2_3, "kind of the contained element",    Packed(ContainedElementTypeParts)},
    {0x01, "ContainedElementMinimum", 1, Decimal, V2_3, "smallest number of such elements"},
    {0x02, "ContainedElementMaximum", 1, Decimal, V2_3, "largest number of such elements"},
};

constexpr Field BehindContainedElementFields[] = {
    {0x00, "SKUNumber",  StringReference, String,  V2_7, "SKU number of the chassis"},
    {0x01, "RackType",   1,               Decimal, V3_9, "unit in which `RackHeight` counts",                            Enumeration(RackTypeRows)},
    {0x02, "RackHeight", 1,               Decimal, V3_9, "height of the enclosure (valid when `Height` is FFh)", In(Unit::OfRackType).Except(NotGivenIf0)},
};

constexpr Section Sections[] = {
    FieldsOf(LockFields),
    Group("ContainedElement", 0x15, CountAt(0x13), EachAsSaidAt(0x14), ContainedElementFields),
    FieldsBehind(BehindContainedElementFields),
};

} // namespace

constexpr Type Type003SystemEnclosure{3, Instances::Shared, V2_3, Fields, Sections};
static_assert(IsWellFormed(Type003SystemEnclosure));

} // namespace Protocol::SMBIOS::Catalogue
