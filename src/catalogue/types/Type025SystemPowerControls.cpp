// Type 25, System Power Controls.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "NextScheduledPowerOnMonth",      1, Hex, V2_2, "month (01h to 12h) of the next timed power-on", In(Unit::BinaryCodedDecimal)},
    {0x05, "NextScheduledPowerOnDayOfMonth", 1, Hex, V2_2, "day of the month (01h to 31h)",                 In(Unit::BinaryCodedDecimal)},
    {0x06, "NextScheduledPowerOnHour",       1, Hex, V2_2, "hour (00h to 23h)",                             In(Unit::BinaryCodedDecimal)},
    {0x07, "NextScheduledPowerOnMinute",     1, Hex, V2_2, "minute (00h to 59h)",                           In(Unit::BinaryCodedDecimal)},
    {0x08, "NextScheduledPowerOnSecond",     1, Hex, V2_2, "second (00h to 59h)",                           In(Unit::BinaryCodedDecimal)},
};

} // namespace

constexpr Type Type025SystemPowerControls{25, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type025SystemPowerControls));

} // namespace Protocol::SMBIOS::Catalogue
