// Type 23, System Reset.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row StatusRows[] = {
    {0x00, "Disabled"},
    {0x01, "Enabled"},
};

constexpr Row BootOptionRows[] = {
    {0x00, "Reserved"},
    {0x01, "Operating system"},
    {0x02, "System utilities"},
    {0x03, "Do not reboot"},
};

constexpr Row WatchdogTimerRows[] = {
    {0x00, "Not present"},
    {0x01, "Present"},
};

constexpr Part CapabilitiesParts[] = {
    {"Status",            0, 0, Enumeration(StatusRows)},
    {"BootOption",        1, 2, Enumeration(BootOptionRows)},
    {"BootOptionOnLimit", 3, 4, Enumeration(BootOptionRows)},
    {"WatchdogTimer",     5, 5, Enumeration(WatchdogTimerRows)},
};

constexpr Field Fields[] = {
    {0x04, "Capabilities",  1, Decimal, V2_2, "reset capabilities",                           Packed(CapabilitiesParts)},
    {0x05, "ResetCount",    2, Decimal, V2_2, "automatic resets since the last intended one", Plain.Except(UnknownIfFFFF)},
    {0x07, "ResetLimit",    2, Decimal, V2_2, "how often a reset is tried in a row",          Plain.Except(UnknownIfFFFF)},
    {0x09, "TimerInterval", 2, Decimal, V2_2, "watchdog interval",                            In(Unit::Minutes).Except(UnknownIfFFFF)},
    {0x0B, "Timeout",       2, Decimal, V2_2, "time until the reboot begins",                 In(Unit::Minutes).Except(UnknownIfFFFF)},
};

} // namespace

constexpr Type Type023SystemReset{23, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type023SystemReset));

} // namespace Protocol::SMBIOS::Catalogue
