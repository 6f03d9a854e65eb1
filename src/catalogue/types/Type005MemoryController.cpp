// Type 5, Memory Controller Information.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row ErrorDetectingMethodRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "None"},
    {0x04, "8-bit Parity"},
    {0x05, "32-bit ECC"},
    {0x06, "64-bit ECC"},
    {0x07, "128-bit ECC"},
    {0x08, "CRC"},
};

constexpr Row ErrorCorrectionRows[] = {
    {0, "Other"},
    {1, "Unknown"},
    {2, "None"},
    {3, "Single-Bit Error Correcting"},
    {4, "Double-Bit Error Correcting"},
    {5, "Error Scrubbing"},
};

constexpr Row InterleaveRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "One-Way Interleave"},
    {0x04, "Two-Way Interleave"},
    {0x05, "Four-Way Interleave"},
    {0x06, "Eight-Way Interleave"},
    {0x07, "Sixteen-Way Interleave"},
};

constexpr Row SupportedSpeedsRows[] = {
    {0, "Other"},
    {1, "Unknown"},
    {2, "70ns"},
    {3, "60ns"},
    {4, "50ns"},
};

constexpr Row SupportedMemoryTypesRows[] = {
    {0, "Other"},
    {1, "Unknown"},
    {2, "Standard"},
    {3, "Fast Page Mode"},
    {4, "EDO"},
    {5, "Parity"},
    {6, "ECC"},
    {7, "SIMM"},
    {8, "DIMM"},
    {9, "Burst EDO"},
    {10, "SDRAM"},
};

constexpr Row MemoryModuleVoltageRows[] = {
    {0, "5V"},
    {1, "3.3V"},
    {2, "2.9V"},
};

constexpr Field Fields[] = {
    {0x04, "ErrorDetectingMethod",          1, Decimal, V2_0, "how errors are detected",                     Enumeration(ErrorDetectingMethodRows)},
    {0x05, "ErrorCorrectingCapability",     1, Decimal, V2_0, "error correction that the controller can do", Bits(ErrorCorrectionRows)},
    {0x06, "SupportedInterleave",           1, Decimal, V2_0, "supported interleave",                        Enumeration(InterleaveRows)},
    {0x07, "CurrentInterleave",             1, Decimal, V2_0, "interleave in use",                           Enumeration(InterleaveRows)},
    {0x08, "MaximumMemoryModuleSize",       1, Decimal, V2_0, "size of the largest module per slot",         In(Unit::PowerOfTwoMegabytes)},
    {0x09, "SupportedSpeeds",               2, Decimal, V2_0, "supported speeds",                            Bits(SupportedSpeedsRows)},
    {0x0B, "SupportedMemoryTypes",          2, Decimal, V2_0, "supported memory types",                      Bits(SupportedMemoryTypesRows)},
    {0x0D, "MemoryModuleVoltage",           1, Decimal, V2_0, "voltages of the module sockets",              Bits(MemoryModuleVoltageRows)},
    {0x0E, "NumberOfAssociatedMemorySlots", 1, Decimal, V2_0, "number of slots that the controller serves"},
};

constexpr Field MemoryModuleConfigurationFields[] = {
    {0x00, "MemoryModuleConfigurationHandle", 2, Decimal, V2_0, "a memory module", HandleOf(6)},
};

constexpr Field BehindMemoryModuleConfigurationFields[] = {
    {0x00, "EnabledErrorCorrectingCapabilities", 1, Decimal, V2_1, "error correction that is switched on", Bits(ErrorCorrectionRows)},
};

constexpr Section Sections[] = {
    Group("MemoryModuleConfiguration", 0x0F, CountAt(0x0E), BytesEach(2), MemoryModuleConfigurationFields),
    FieldsBehind(BehindMemoryModuleConfigurationFields),
};

} // namespace

constexpr Type Type005MemoryController{5, Instances::Indexed, Later, Fields, Sections};
static_assert(IsWellFormed(Type005MemoryController));

} // namespace Protocol::SMBIOS::Catalogue
