// Type 18, 32-bit Memory Error Information.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row ErrorTypeRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "OK"},
    {0x04, "Bad read"},
    {0x05, "Parity error"},
    {0x06, "Single-bit error"},
    {0x07, "Double-bit error"},
    {0x08, "Multi-bit error"},
    {0x09, "Nibble error"},
    {0x0A, "Checksum error"},
    {0x0B, "CRC error"},
    {0x0C, "Corrected single-bit error"},
    {0x0D, "Corrected error"},
    {0x0E, "Uncorrectable error"},
};

constexpr Row ErrorGranularityRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Device level"},
    {0x04, "Memory partition level"},
};

constexpr Row ErrorOperationRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Read"},
    {0x04, "Write"},
    {0x05, "Partial Write"},
};

constexpr Field Fields[] = {
    {0x04, "ErrorType",               1, Decimal, V2_3, "kind of error",                    Enumeration(ErrorTypeRows)},
    {0x05, "ErrorGranularity",        1, Decimal, V2_3, "granularity",                      Enumeration(ErrorGranularityRows)},
    {0x06, "ErrorOperation",          1, Decimal, V2_3, "operation that failed",            Enumeration(ErrorOperationRows)},
    {0x07, "VendorSyndrome",          4, Decimal, V2_3, "vendor syndrome",                  Plain.Except(UnknownIf0)},
    {0x0B, "MemoryArrayErrorAddress", 4, Decimal, V2_3, "address in the array",             Plain.Except(UnknownIf80000000)},
    {0x0F, "DeviceErrorAddress",      4, Decimal, V2_3, "address in the device",            Plain.Except(UnknownIf80000000)},
    {0x13, "ErrorResolution",         4, Decimal, V2_3, "range (the error lies within it)", In(Unit::Bytes).Except(UnknownIf80000000)},
};

} // namespace

constexpr Type Type018MemoryErrorInformation32{18, Instances::Indexed, V2_3, Fields};
static_assert(IsWellFormed(Type018MemoryErrorInformation32));

} // namespace Protocol::SMBIOS::Catalogue
