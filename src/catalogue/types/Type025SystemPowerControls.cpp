// Type 25, System Power Controls.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "NextScheduledPowerOnMonth",      1, Hex, V2_2, "month of the next timed power-on, BCD, 01h to 12h"},
    {0x05, "NextScheduledPowerOnDayOfMonth", 1, Hex, V2_2, "day of the month, BCD, 01h to 31h"},
    {0x06, "NextScheduledPowerOnHour",       1, Hex, V2_2, "hour, BCD, 00h to 23h"},
    {0x07, "NextScheduledPowerOnMinute",     1, Hex, V2_2, "minute, BCD, 00h to 59h"},
    {0x08, "NextScheduledPowerOnSecond",     1, Hex, V2_2, "second, BCD, 00h to 59h"},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type025SystemPowerControls{25, Instances::Indexed, Later, Fields};

} // namespace Protocol::SMBIOS::Catalogue
