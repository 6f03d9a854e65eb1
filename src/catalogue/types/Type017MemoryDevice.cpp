// Type 17, Memory Device.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row FormFactorRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "SIMM"},
    {0x04, "SIP"},
    {0x05, "Chip"},
    {0x06, "DIP"},
    {0x07, "ZIP"},
    {0x08, "Proprietary Card"},
    {0x09, "DIMM"},
    {0x0A, "TSOP"},
    {0x0B, "Row of chips"},
    {0x0C, "RIMM"},
    {0x0D, "SODIMM"},
    {0x0E, "SRIMM"},
    {0x0F, "FB-DIMM", V2_5},
    {0x10, "Die", Later},
    {0x11, "CAMM", Later},
    {0x12, "CUDIMM", Later},
    {0x13, "CSODIMM", Later},
};

constexpr Row MemoryTypeRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "DRAM"},
    {0x04, "EDRAM"},
    {0x05, "VRAM"},
    {0x06, "SRAM"},
    {0x07, "RAM"},
    {0x08, "ROM"},
    {0x09, "FLASH"},
    {0x0A, "EEPROM"},
    {0x0B, "FEPROM"},
    {0x0C, "EPROM"},
    {0x0D, "CDRAM"},
    {0x0E, "3DRAM"},
    {0x0F, "SDRAM"},
    {0x10, "SGRAM"},
    {0x11, "RDRAM"},
    {0x12, "DDR"},
    {0x13, "DDR2", V2_4},
    {0x14, "DDR2 FB-DIMM", V2_5},
    {0x15, "Reserved", V2_5, V2_5},
    {0x16, "Reserved", V2_5, V2_5},
    {0x17, "Reserved", V2_5, V2_5},
    {0x18, "DDR3", V2_5},
    {0x19, "FBD2", V2_5},
    {0x1A, "DDR4", V2_7},
    {0x1B, "LPDDR", V2_7},
    {0x1C, "LPDDR2", V2_7},
    {0x1D, "LPDDR3", V2_7},
    {0x1E, "LPDDR4", V2_7},
    {0x1F, "Logical non-volatile device", Later},
    {0x20, "HBM (High Bandwidth Memory)", Later},
    {0x21, "HBM2 (High Bandwidth Memory Generation 2)", Later},
    {0x22, "DDR5", Later},
    {0x23, "LPDDR5", Later},
    {0x24, "HBM3 (High Bandwidth Memory Generation 3)", Later},
    {0x25, "MRDIMM", Later},
};

constexpr Row TypeDetailRows[] = {
    {1, "Other", Later},
    {2, "Unknown", Later},
    {3, "Fast-paged"},
    {4, "Static column"},
    {5, "Pseudo-static"},
    {6, "RAMBUS"},
    {7, "Synchronous"},
    {8, "CMOS"},
    {9, "EDO"},
    {10, "Window DRAM"},
    {11, "Cache DRAM"},
    {12, "Non-volatile"},
    {13, "Registered (Buffered)", V2_7},
    {14, "Unbuffered (Unregistered)", V2_7},
    {15, "LRDIMM", V2_7},
};

constexpr Row MemoryTechnologyRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "DRAM"},
    {0x04, "NVDIMM-N"},
    {0x05, "NVDIMM-F"},
    {0x06, "NVDIMM-P"},
    {0x07, "Intel(R) Optane(TM) persistent memory"},
    {0x08, "MRDIMM"},
};

constexpr Row MemoryOperatingModeCapabilityRows[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Volatile memory"},
    {4, "Byte-accessible persistent memory"},
    {5, "Block-accessible persistent memory"},
};

constexpr Row MemoryErrorInfoHandleSpecials[] = {
    {0xFFFE, "not provided"},
    {0xFFFF, "no error"},
};

constexpr Row SizeSpecials[] = {
    {0, "no module"},
    {0x7FFF, "see `ExtendedSize`"},
    {0xFFFF, "unknown"},
};

constexpr Row DeviceSetSpecials[] = {
    {0, "none"},
    {0xFF, "unknown"},
};

constexpr Row SpeedSpecials[] = {
    {0, "unknown"},
    {0xFFFF, "see `ExtendedSpeed`"},
};

constexpr Row ConfiguredMemorySpeedSpecials[] = {
    {0, "unknown"},
    {0xFFFF, "see `ExtendedConfiguredMemorySpeed`"},
};

constexpr Field Fields[] = {
    {0x04, "MemoryArrayHandle",     2,               Decimal, V2_3, "the array",                                      HandleOf(16)},
    {0x06, "MemoryErrorInfoHandle", 2,               Decimal, V2_3, "the error information",                          HandleOf(18, 33).Except(MemoryErrorInfoHandleSpecials)},
    {0x08, "TotalWidth",            2,               Decimal, V2_3, "width (the bits for error correction included)", In(Unit::Bits).Except(UnknownIfFFFF)},
    {0x0A, "DataWidth",             2,               Decimal, V2_3, "width",                                          In(Unit::Bits).Except(UnknownIfFFFF)},
    {0x0C, "Size",                  2,               Decimal, V2_3, "size",                                           In(Unit::MegabytesOrKilobytes).Except(SizeSpecials)},
    {0x0E, "FormFactor",            1,               Decimal, V2_3, "form factor",                                    Enumeration(FormFactorRows)},
    {0x0F, "DeviceSet",             1,               Decimal, V2_3, "number of the set that the device belongs to",   Plain.Except(DeviceSetSpecials)},
    {0x10, "DeviceLocator",         StringReference, String,  V2_3, "socket or board position text"},
    {0x11, "BankLocator",           StringReference, String,  V2_3, "bank text"},
    {0x12, "MemoryType",            1,               Decimal, V2_3, "memory type",                                    Enumeration(MemoryTypeRows)},
    {0x13, "TypeDetail",            2,               Decimal, V2_3, "type details",                                   Bits(TypeDetailRows)},
    {0x15, "Speed",                 2,               Decimal, V2_3, "highest speed",                                  In(Unit::MegatransfersPerSecond).Except(SpeedSpecials)},
    {0x17, "Manufacturer",          StringReference, String,  V2_3, "manufacturer text"},
    {0x18, "SerialNo",              StringReference, String,  V2_3, "serial number"},
    {0x19, "AssetTag",              StringReference, String,  V2_3, "asset tag"},
    {0x1A, "PartNumber",            StringReference, String,  V2_3, "part number"},
    {0x1B, "Attributes",            1,               Decimal, V2_6, "rank",                                           In(Unit::LowFourBits).Except(UnknownIf0)},
    {0x1C, "ExtendedSize",          4,               Decimal, V2_7, "size (valid when `Size` is 7FFFh)",              In(Unit::Megabytes)},
};

constexpr Field LaterFields[] = {
    {0x20, "ConfiguredMemorySpeed",                   2,               Decimal,  V2_7, "configured speed",                                                      In(Unit::MegatransfersPerSecond).Except(ConfiguredMemorySpeedSpecials)},
    {0x22, "MinimumVoltage",                          2,               Decimal,  V2_8, "lowest operating voltage",                                              In(Unit::Millivolts).Except(UnknownIf0)},
    {0x24, "MaximumVoltage",                          2,               Decimal,  V2_8, "highest operating voltage",                                             In(Unit::Millivolts).Except(UnknownIf0)},
    {0x26, "ConfiguredVoltage",                       2,               Decimal,  V2_8, "configured voltage",                                                    In(Unit::Millivolts).Except(UnknownIf0)},
    {0x28, "MemoryTechnology",                        1,               Decimal,  V3_2, "memory technology",                                                     Enumeration(MemoryTechnologyRows)},
    {0x29, "MemoryOperatingModeCapability",           2,               Decimal,  V3_2, "operating modes that the device supports",                              Bits(MemoryOperatingModeCapabilityRows)},
    {0x2B, "FirmwareVersion",                         StringReference, String,   V3_2, "firmware version of the device"},
    {0x2C, "ModuleManufacturerID",                    2,               Decimal,  V3_2, "manufacturer of the module as in its SPD data"},
    {0x2E, "ModuleProductID",                         2,               Decimal,  V3_2, "product of the module as in its SPD data"},
    {0x30, "MemorySubsystemControllerManufacturerID", 2,               Decimal,  V3_2, "manufacturer of the memory subsystem controller as in the SPD data"},
    {0x32, "MemorySubsystemControllerProductID",      2,               Decimal,  V3_2, "product of the memory subsystem controller as in the SPD data"},
    {0x34, "NonVolatileSize",                         8,               Unsigned, V3_2, "size of the non-volatile part",                                         In(Unit::Bytes)},
    {0x3C, "VolatileSize",                            8,               Unsigned, V3_2, "size of the volatile part",                                             In(Unit::Bytes)},
    {0x44, "CacheSize",                               8,               Unsigned, V3_2, "size of the cache part",                                                In(Unit::Bytes)},
    {0x4C, "LogicalSize",                             8,               Unsigned, V3_2, "size of the logical memory device",                                     In(Unit::Bytes)},
    {0x54, "ExtendedSpeed",                           4,               Decimal,  V3_3, "speed (valid when `Speed` is FFFFh)",                                   In(Unit::MegatransfersPerSecond)},
    {0x58, "ExtendedConfiguredMemorySpeed",           4,               Decimal,  V3_3, "configured speed (valid when `ConfiguredMemorySpeed` is FFFFh)",        In(Unit::MegatransfersPerSecond)},
    {0x5C, "PMIC0ManufacturerID",                     2,               Decimal,  V3_7, "manufacturer of the power management circuit PMIC0 as in the SPD data"},
    {0x5E, "PMIC0RevisionNumber",                     2,               Decimal,  V3_7, "revision of PMIC0 as in the SPD data",                                  Plain.Except(UnknownIfFF00)},
    {0x60, "RCDManufacturerID",                       2,               Decimal,  V3_7, "manufacturer of the registering clock driver as in the SPD data"},
    {0x62, "RCDRevisionNumber",                       2,               Decimal,  V3_7, "revision of the registering clock driver as in the SPD data",           Plain.Except(UnknownIfFF00)},
};

constexpr Section Sections[] = {
    FieldsOf(LaterFields),
};

} // namespace

constexpr Type Type017MemoryDevice{17, Instances::Indexed, V2_3, Fields, Sections};
static_assert(IsWellFormed(Type017MemoryDevice));

} // namespace Protocol::SMBIOS::Catalogue
