// Type 4, Processor Information.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"
#include "catalogue/types/ProcessorFamilies.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row ProcessorTypeRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Central processor"},
    {0x04, "Math processor"},
    {0x05, "DSP processor"},
    {0x06, "Video processor"},
};

constexpr Row VoltageCapabilityRows[] = {
    {1, "5V"},
    {2, "3.3V"},
    {3, "2.9V"},
};

constexpr Row StatusRows[] = {
    {1, "Unknown"},
    {2, "CPU Enabled"},
    {3, "CPU Disabled by User via BIOS Setup"},
    {4, "CPU Disabled By BIOS (POST Error)"},
    {5, "CPU is Idle, waiting to be enabled"},
    {6, "Reserved"},
    {7, "Reserved"},
    {8, "Other"},
    {9, "CPU Socket Populated"},
};

constexpr Row UpgradeRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Daughter Board"},
    {0x04, "ZIF Socket"},
    {0x05, "Replaceable Piggy Back"},
    {0x06, "None"},
    {0x07, "LIF Socket"},
    {0x08, "Slot 1"},
    {0x09, "Slot 2"},
    {0x0A, "370-pin socket"},
    {0x0B, "Slot A"},
    {0x0C, "Slot M"},
    {0x0D, "Socket 423"},
    {0x0E, "Socket A (Socket 462)"},
    {0x0F, "Socket 478"},
    {0x10, "Socket 754", V2_4},
    {0x11, "Socket 940", V2_4},
    {0x12, "Socket 939", V2_5},
    {0x13, "Socket mPGA604", V2_5},
    {0x14, "Socket LGA771", V2_5},
    {0x15, "Socket LGA775", V2_5},
    {0x16, "Socket S1", V2_6},
    {0x17, "Socket AM2", V2_6},
    {0x18, "Socket F (1207)", V2_6},
    {0x19, "Socket LGA1366", V2_7},
    {0x1A, "Socket G34", V2_7},
    {0x1B, "Socket AM3", V2_7},
    {0x1C, "Socket C32", V2_7},
    {0x1D, "Socket LGA1156", V2_7},
    {0x1E, "Socket LGA1157", V2_7, V2_7},
    {0x1E, "Socket LGA1567", Later},
    {0x1F, "Socket PGA988A", V2_7},
    {0x20, "Socket BGA1288", V2_7},
    {0x21, "Socket rPGA988B", V2_7},
    {0x22, "Socket BGA1023", V2_7},
    {0x23, "Socket BGA1224", V2_7},
    {0x24, "Socket BGA1155", V2_7},
    {0x25, "Socket LGA1356", V2_7},
    {0x26, "Socket LGA2011", V2_7},
    {0x27, "Socket FS1", V2_7},
    {0x28, "Socket FS2", V2_7},
    {0x29, "Socket FM1", V2_7},
    {0x2A, "Socket FM2", V2_7},
    {0x2B, "Socket LGA2011-3", V2_7},
    {0x2C, "Socket LGA1356-3", V2_7},
    {0x2D, "Socket LGA1150", Later},
    {0x2E, "Socket BGA1168", Later},
    {0x2F, "Socket BGA1234", Later},
    {0x30, "Socket BGA1364", Later},
    {0x31, "Socket AM4", Later},
    {0x32, "Socket LGA1151", Later},
    {0x33, "Socket BGA1356", Later},
    {0x34, "Socket BGA1440", Later},
    {0x35, "Socket BGA1515", Later},
    {0x36, "Socket LGA3647-1", Later},
    {0x37, "Socket SP3", Later},
    {0x38, "Socket SP3r2", Later},
    {0x39, "Socket LGA2066", Later},
    {0x3A, "Socket BGA1392", Later},
    {0x3B, "Socket BGA1510", Later},
    {0x3C, "Socket BGA1528", Later},
    {0x3D, "Socket LGA4189", Later},
    {0x3E, "Socket LGA1200", Later},
    {0x3F, "Socket LGA4677", Later},
    {0x40, "Socket LGA1700", Later},
    {0x41, "Socket BGA1744", Later},
    {0x42, "Socket BGA1781", Later},
    {0x43, "Socket BGA1211", Later},
    {0x44, "Socket BGA2422", Later},
    {0x45, "Socket LGA1211", Later},
    {0x46, "Socket LGA2422", Later},
    {0x47, "Socket LGA5773", Later},
    {0x48, "Socket BGA5773", Later},
    {0x49, "Socket AM5", Later},
    {0x4A, "Socket SP5", Later},
    {0x4B, "Socket SP6", Later},
    {0x4C, "Socket BGA883", Later},
    {0x4D, "Socket BGA1190", Later},
    {0x4E, "Socket BGA4129", Later},
    {0x4F, "Socket LGA4710", Later},
    {0x50, "Socket LGA7529", Later},
    {0x51, "Socket BGA1964", Later},
    {0x52, "Socket BGA1792", Later},
    {0x53, "Socket BGA2049", Later},
    {0x54, "Socket BGA2551", Later},
    {0x55, "Socket LGA1851", Later},
    {0x56, "Socket BGA2114", Later},
    {0x57, "Socket BGA2833", Later},
    {0xFF, "No other valid enumeration, see Socket Type", Later},
};

constexpr Row CharacteristicsRows[] = {
    {1, "Unknown", Later},
    {2, "64 bit capable"},
    {3, "Multi-Core", V2_7},
    {4, "Hardware Thread", V2_7},
    {5, "Execute Protection", V2_7},
    {6, "Enhanced Virtualization", V2_7},
    {7, "Power/Performance Control", V2_7},
    {8, "128-bit Capable", Later},
    {9, "Arm64 SoC ID", Later},
};

constexpr Row ProcessorFamilySpecials[] = {{0xFE, "see `ProcessorFamily2`"}};

constexpr Row UpgradeSpecials[] = {{0xFF, "see `SocketType`"}};

constexpr Row CoreCountSpecials[] = {
    {0, "unknown"},
    {0xFF, "see `CoreCount2`"},
};

constexpr Row CoreEnabledSpecials[] = {
    {0, "unknown"},
    {0xFF, "see `CoreEnabled2`"},
};

constexpr Row ThreadCountSpecials[] = {
    {0, "unknown"},
    {0xFF, "see `ThreadCount2`"},
};

constexpr Field Fields[] = {
    {0x04, "SocketDesignation",     StringReference, String,  V2_3, "socket name on the board"},
    {0x05, "ProcessorType",         1,               Decimal, V2_3, "processor type",                                       Enumeration(ProcessorTypeRows)},
    {0x06, "ProcessorFamily",       1,               Decimal, V2_3, "family of the processor",                              Enumeration(ProcessorFamilyRows).Except(ProcessorFamilySpecials)},
    {0x07, "ProcessorManufacturer", StringReference, String,  V2_3, "manufacturer text"},
    {0x08, "ProcessorId",           8,               Hex,     V2_3, "raw data of processor identification, such as CPUID"},
    {0x10, "ProcessorVersion",      StringReference, String,  V2_3, "version text"},
    {0x11, "VoltageCapability",     1,               Decimal, V2_3, "voltage",                                              DecodedBy(TableKind::VoltageCapability, VoltageCapabilityRows)},
    {0x12, "ClockFrequency",        2,               Decimal, V2_3, "external clock",                                       In(Unit::Megahertz).Except(UnknownIf0)},
    {0x14, "MaxSpeed",              2,               Decimal, V2_3, "highest speed of the socket",                          In(Unit::Megahertz).Except(UnknownIf0)},
    {0x16, "CurrentSpeed",          2,               Decimal, V2_3, "speed at boot",                                        In(Unit::Megahertz).Except(UnknownIf0)},
    {0x18, "Status",                1,               Decimal, V2_3, "whether the socket is populated, and its state",       DecodedBy(TableKind::Status, StatusRows)},
    {0x19, "Upgrade",               1,               Decimal, V2_3, "kind of socket",                                       Enumeration(UpgradeRows).Except(UpgradeSpecials)},
    {0x1A, "L1CacheHandle",         2,               Decimal, V2_3, "the level 1 cache",                                    HandleOf(7)},
    {0x1C, "L2CacheHandle",         2,               Decimal, V2_3, "the level 2 cache",                                    HandleOf(7)},
    {0x1E, "L3CacheHandle",         2,               Decimal, V2_3, "the level 3 cache",                                    HandleOf(7)},
    {0x20, "SerialNo",              StringReference, String,  V2_3, "serial number"},
    {0x21, "AssetTag",              StringReference, String,  V2_3, "asset tag"},
    {0x22, "PartNumber",            StringReference, String,  V2_3, "part number"},
    {0x23, "CoreCount",             1,               Decimal, V2_5, "number of cores",                                      Plain.Except(CoreCountSpecials)},
    {0x24, "CoreEnabled",           1,               Decimal, V2_5, "number of enabled cores",                              Plain.Except(CoreEnabledSpecials)},
    {0x25, "ThreadCount",           1,               Decimal, V2_5, "number of threads",                                    Plain.Except(ThreadCountSpecials)},
    {0x26, "Characteristics",       2,               Decimal, V2_5, "characteristics",                                      Bits(CharacteristicsRows)},
    {0x28, "ProcessorFamily2",      2,               Decimal, V2_6, "family of the processor, families above FFh included", Enumeration(ProcessorFamily2Rows, ProcessorFamilyRows)},
    {0x2A, "CoreCount2",            2,               Decimal, V3_0, "number of cores, counts above 255 included"},
    {0x2C, "CoreEnabled2",          2,               Decimal, V3_0, "number of enabled cores, counts above 255 included"},
    {0x2E, "ThreadCount2",          2,               Decimal, V3_0, "number of threads, counts above 255 included"},
    {0x30, "ThreadEnabled",         2,               Decimal, V3_6, "number of enabled threads"},
    {0x32, "SocketType",            StringReference, String,  V3_8, "name of the processor socket"},
};

} // namespace

constexpr Type Type004ProcessorInformation{4, Instances::Indexed, V2_3, Fields};
static_assert(IsWellFormed(Type004ProcessorInformation));

} // namespace Protocol::SMBIOS::Catalogue
