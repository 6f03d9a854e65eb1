// Type 36, Management Device Threshold Data.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "LowerThresholdNonCritical",    2, Signed, V2_3, "lower non-critical threshold",    In(Unit::OfItsProbe).Except(NoneIf8000)},
    {0x06, "UpperThresholdNonCritical",    2, Signed, V2_3, "upper non-critical threshold",    In(Unit::OfItsProbe).Except(NoneIf8000)},
    {0x08, "LowerThresholdCritical",       2, Signed, V2_3, "lower critical threshold",        In(Unit::OfItsProbe).Except(NoneIf8000)},
    {0x0A, "UpperThresholdCritical",       2, Signed, V2_3, "upper critical threshold",        In(Unit::OfItsProbe).Except(NoneIf8000)},
    {0x0C, "LowerThresholdNonRecoverable", 2, Signed, V2_3, "lower non-recoverable threshold", In(Unit::OfItsProbe).Except(NoneIf8000)},
    {0x0E, "UpperThresholdNonRecoverable", 2, Signed, V2_3, "upper non-recoverable threshold", In(Unit::OfItsProbe).Except(NoneIf8000)},
};

} // namespace

constexpr Type Type036ManagementDeviceThresholds{36, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type036ManagementDeviceThresholds));

} // namespace Protocol::SMBIOS::Catalogue
