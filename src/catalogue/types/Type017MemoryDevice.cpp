// Type 17, Memory Device.

#include "catalogue/Types.h"

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
};

constexpr Row TypeDetailRows[] = {
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

constexpr Field Fields[] = {
    {0x04, "MemoryArrayHandle",     2,               Decimal, V2_3},
    {0x06, "MemoryErrorInfoHandle", 2,               Decimal, V2_3},
    {0x08, "TotalWidth",            2,               Decimal, V2_3},
    {0x0A, "DataWidth",             2,               Decimal, V2_3},
    {0x0C, "Size",                  2,               Decimal, V2_3},
    {0x0E, "FormFactor",            1,               Decimal, V2_3, Enumeration(FormFactorRows)},
    {0x0F, "DeviceSet",             1,               Decimal, V2_3},
    {0x10, "DeviceLocator",         StringReference, String,  V2_3},
    {0x11, "BankLocator",           StringReference, String,  V2_3},
    {0x12, "MemoryType",            1,               Decimal, V2_3, Enumeration(MemoryTypeRows)},
    {0x13, "TypeDetail",            2,               Decimal, V2_3, Bits(16, TypeDetailRows)},
    {0x15, "Speed",                 2,               Decimal, V2_3},
    {0x17, "Manufacturer",          StringReference, String,  V2_3},
    {0x18, "SerialNo",              StringReference, String,  V2_3},
    {0x19, "AssetTag",              StringReference, String,  V2_3},
    {0x1A, "PartNumber",            StringReference, String,  V2_3},
    {0x1B, "Attributes",            1,               Decimal, V2_6},
    {0x1C, "ExtendedSize",          4,               Decimal, V2_7},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type017MemoryDevice{17, Instances::Indexed, V2_3, Fields};

} // namespace Protocol::SMBIOS::Catalogue
