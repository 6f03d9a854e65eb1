// Type 36, Management Device Threshold Data.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "LowerThresholdNonCritical",    2, Signed, V2_3, "lower non-critical threshold; 8000h if there is none"},
    {0x06, "UpperThresholdNonCritical",    2, Signed, V2_3, "upper non-critical threshold; 8000h if there is none"},
    {0x08, "LowerThresholdCritical",       2, Signed, V2_3, "lower critical threshold; 8000h if there is none"},
    {0x0A, "UpperThresholdCritical",       2, Signed, V2_3, "upper critical threshold; 8000h if there is none"},
    {0x0C, "LowerThresholdNonRecoverable", 2, Signed, V2_3, "lower non-recoverable threshold; 8000h if there is none"},
    {0x0E, "UpperThresholdNonRecoverable", 2, Signed, V2_3, "upper non-recoverable threshold; 8000h if there is none"},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type036ManagementDeviceThresholds{36, Instances::Indexed, Later, Fields};

} // namespace Protocol::SMBIOS::Catalogue
