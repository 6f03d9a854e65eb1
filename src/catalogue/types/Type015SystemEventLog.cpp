// Type 15, System Event Log.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row AccessMethodRows[] = {
    {0x00, "Indexed I/O, one 8-bit index port, one 8-bit data port"},
    {0x01, "Indexed I/O, two 8-bit index ports, one 8-bit data port"},
    {0x02, "Indexed I/O, one 16-bit index port, one 8-bit data port"},
    {0x03, "Memory-mapped physical 32-bit address"},
    {0x04, "General-Purpose NonVolatile Data functions"},
};

constexpr Row LogStatusRows[] = {
    {0, "Log area valid"},
    {1, "Log area full"},
};

constexpr Row LogHeaderFormatRows[] = {
    {0x00, "No header"},
    {0x01, "Type 1 log header"},
};

constexpr Row LogTypeRows[] = {
    {0x00, "Reserved"},
    {0x01, "Single-bit ECC memory error"},
    {0x02, "Multi-bit ECC memory error"},
    {0x03, "Parity memory error"},
    {0x04, "Bus time-out"},
    {0x05, "I/O Channel Check"},
    {0x06, "Software NMI"},
    {0x07, "POST Memory Resize"},
    {0x08, "POST Error"},
    {0x09, "PCI Parity Error"},
    {0x0A, "PCI System Error"},
    {0x0B, "CPU Failure"},
    {0x0C, "EISA FailSafe Timer time-out"},
    {0x0D, "Correctable memory log disabled"},
    {0x0E, "Logging disabled for a specific event type"},
    {0x0F, "Reserved"},
    {0x10, "System Limit Exceeded"},
    {0x11, "Asynchronous hardware timer expired"},
    {0x12, "System configuration information"},
    {0x13, "Hard-disk information"},
    {0x14, "System reconfigured"},
    {0x15, "Uncorrectable CPU-complex error"},
    {0x16, "Log Area Reset/Cleared"},
    {0x17, "System boot"},
    {0xFF, "End of log"},
};

constexpr Row VariableDataFormatTypeRows[] = {
    {0x00, "None"},
    {0x01, "Handle"},
    {0x02, "Multiple-Event"},
    {0x03, "Multiple-Event Handle"},
    {0x04, "POST Results Bitmap"},
    {0x05, "System Management Type"},
    {0x06, "Multiple-Event System Management Type"},
};

constexpr Field Fields[] = {
    {0x04, "LogAreaLength",                       2, Decimal, V2_0, "length of the log area (header included)",              In(Unit::Bytes)},
    {0x06, "LogHeaderStartOffset",                2, Decimal, V2_0, "offset of the log header in the area"},
    {0x08, "LogDataStartOffset",                  2, Decimal, V2_0, "offset of the first log data byte in the area"},
    {0x0A, "AccessMethod",                        1, Decimal, V2_0, "how the log area is reached",                           Enumeration(AccessMethodRows)},
    {0x0B, "LogStatus",                           1, Decimal, V2_0, "state of the log",                                      Bits(LogStatusRows)},
    {0x0C, "LogChangeToken",                      4, Decimal, V2_0, "number that changes with each change of the log"},
    {0x10, "AccessMethodAddress",                 4, Decimal, V2_0, "address for the access method, read by `AccessMethod`"},
    {0x14, "LogHeaderFormat",                     1, Decimal, V2_1, "format of the log header",                              Enumeration(LogHeaderFormatRows)},
    {0x15, "NumberOfSupportedLogTypeDescriptors", 1, Decimal, V2_1, "number of log type descriptors"},
    {0x16, "LengthOfEachLogTypeDescriptor",       1, Decimal, V2_1, "length of a log type descriptor",                       In(Unit::Bytes)},
};

constexpr Field LogTypeDescriptorFields[] = {
    {0x00, "LogType",                1, Decimal, V2_1, "kind of event",               Enumeration(LogTypeRows)},
    {0x01, "VariableDataFormatType", 1, Decimal, V2_1, "format of the variable data", Enumeration(VariableDataFormatTypeRows)},
};

constexpr Section Sections[] = {
    Group("LogTypeDescriptor", 0x17, CountAt(0x15), EachAsSaidAt(0x16), LogTypeDescriptorFields),
};

} // namespace

constexpr Type Type015SystemEventLog{15, Instances::Indexed, Later, Fields, Sections};
static_assert(IsWellFormed(Type015SystemEventLog));

} // namespace Protocol::SMBIOS::Catalogue
