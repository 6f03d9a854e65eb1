// Type 4, Processor Information.

#include "catalogue/Types.h"
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
    {0x1E, "Socket LGA1157", V2_7},
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
};

constexpr Row CharacteristicsRows[] = {
    {2, "64 bit capable"},
    {3, "Multi-Core", V2_7},
    {4, "Hardware Thread", V2_7},
    {5, "Execute Protection", V2_7},
    {6, "Enhanced Virtualization", V2_7},
    {7, "Power/Performance Control", V2_7},
};

constexpr Field Fields[] = {
    {0x04, "SocketDesignation",     StringReference, String,  V2_3},
    {0x05, "ProcessorType",         1,               Decimal, V2_3, Enumeration(ProcessorTypeRows)},
    {0x06, "ProcessorFamily",       1,               Decimal, V2_3, Enumeration(ProcessorFamilyRows)},
    {0x07, "ProcessorManufacturer", StringReference, String,  V2_3},
    {0x08, "ProcessorId",           8,               Hex,     V2_3},
    {0x10, "ProcessorVersion",      StringReference, String,  V2_3},
    {0x11, "VoltageCapability",     1,               Decimal, V2_3, DecodedBy("VoltageCapability", VoltageCapabilityRows)},
    {0x12, "ClockFrequency",        2,               Decimal, V2_3},
    {0x14, "MaxSpeed",              2,               Decimal, V2_3},
    {0x16, "CurrentSpeed",          2,               Decimal, V2_3},
    {0x18, "Status",                1,               Decimal, V2_3, DecodedBy("Status", StatusRows)},
    {0x19, "Upgrade",               1,               Decimal, V2_3, Enumeration(UpgradeRows)},
    {0x1A, "L1CacheHandle",         2,               Decimal, V2_3},
    {0x1C, "L2CacheHandle",         2,               Decimal, V2_3},
    {0x1E, "L3CacheHandle",         2,               Decimal, V2_3},
    {0x20, "SerialNo",              StringReference, String,  V2_3},
    {0x21, "AssetTag",              StringReference, String,  V2_3},
    {0x22, "PartNumber",            StringReference, String,  V2_3},
    {0x23, "CoreCount",             1,               Decimal, V2_5},
    {0x24, "CoreEnabled",           1,               Decimal, V2_5},
    {0x25, "ThreadCount",           1,               Decimal, V2_5},
    {0x26, "Characteristics",       2,               Decimal, V2_5, Bits(15, CharacteristicsRows)},
    {0x28, "ProcessorFamily2",      2,               Decimal, V2_6, Enumeration(ProcessorFamily2Rows)},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type004ProcessorInformation{4, Instances::Indexed, V2_3, Fields};

} // namespace Protocol::SMBIOS::Catalogue
