// Type 36, Management Device Threshold Data.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "LowerThresholdNonCritical",    2, Signed, V2_3},
    {0x06, "UpperThresholdNonCritical",    2, Signed, V2_3},
    {0x08, "LowerThresholdCritical",       2, Signed, V2_3},
    {0x0A, "UpperThresholdCritical",       2, Signed, V2_3},
    {0x0C, "LowerThresholdNonRecoverable", 2, Signed, V2_3},
    {0x0E, "UpperThresholdNonRecoverable", 2, Signed, V2_3},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type036ManagementDeviceThresholds{36, Instances::Indexed, Later, Fields};

} // namespace Protocol::SMBIOS::Catalogue
