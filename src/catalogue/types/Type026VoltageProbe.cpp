// Type 26, Voltage Probe.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row LocationRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Processor"},
    {0x04, "Disk"},
    {0x05, "Peripheral Bay"},
    {0x06, "System Management Module"},
    {0x07, "Motherboard"},
    {0x08, "Memory Module"},
    {0x09, "Processor Module"},
    {0x0A, "Power Unit"},
    {0x0B, "Add-in Card"},
};

constexpr Row StatusRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "OK"},
    {0x04, "Non-critical"},
    {0x05, "Critical"},
    {0x06, "Non-recoverable"},
};

constexpr Part LocationAndStatusParts[] = {
    {"Location", 0, 4, Enumeration(LocationRows)},
    {"Status",   5, 7, Enumeration(StatusRows)},
};

constexpr Field Fields[] = {
    {0x04, "Description",       StringReference, String,  V2_2, "what the probe measures or where it sits"},
    {0x05, "LocationAndStatus", 1,               Decimal, V2_2, "place and state",                                       Packed(LocationAndStatusParts)},
    {0x06, "MaximumValue",      2,               Signed,  V2_2, "highest readable voltage",                              In(Unit::Millivolts).Except(UnknownIf8000)},
    {0x08, "MinimumValue",      2,               Signed,  V2_2, "lowest readable voltage",                               In(Unit::Millivolts).Except(UnknownIf8000)},
    {0x0A, "Resolution",        2,               Decimal, V2_2, "resolution",                                            In(Unit::TenthsOfMillivolt).Except(UnknownIf8000)},
    {0x0C, "Tolerance",         2,               Signed,  V2_2, "tolerance (plus or minus)",                             In(Unit::Millivolts).Except(UnknownIf8000)},
    {0x0E, "Accuracy",          2,               Decimal, V2_2, "accuracy (plus or minus)",                              In(Unit::HundredthsOfPercent).Except(UnknownIf8000)},
    {0x10, "OEMDefined",        4,               Decimal, V2_2, "value of the OEM or firmware vendor"},
    {0x14, "NominalValue",      2,               Signed,  V2_2, "nominal voltage (only in a structure longer than 14h)", In(Unit::Millivolts).Except(UnknownIf8000)},
};

} // namespace

constexpr Type Type026VoltageProbe{26, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type026VoltageProbe));

} // namespace Protocol::SMBIOS::Catalogue
