// Type 25, System Power Controls.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "NextScheduledPowerOnMonth",      1, Hex, V2_2},
    {0x05, "NextScheduledPowerOnDayOfMonth", 1, Hex, V2_2},
    {0x06, "NextScheduledPowerOnHour",       1, Hex, V2_2},
    {0x07, "NextScheduledPowerOnMinute",     1, Hex, V2_2},
    {0x08, "NextScheduledPowerOnSecond",     1, Hex, V2_2},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type025SystemPowerControls{25, Instances::Indexed, Later, Fields};

} // namespace Protocol::SMBIOS::Catalogue
