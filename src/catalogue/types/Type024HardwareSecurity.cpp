// Type 24, Hardware Security.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row HardwareSecuritySettingsRows[] = {
    {1, "Disabled"},
    {2, "Enabled"},
    {3, "Not Implemented"},
    {4, "Unknown"},
};

constexpr Field Fields[] = {
    {0x04, "HardwareSecuritySettings", 1, Decimal, V2_3, "passwords and the front panel", DecodedBy(TableKind::HardwareSecuritySettings, HardwareSecuritySettingsRows)},
};

} // namespace

constexpr Type Type024HardwareSecurity{24, Instances::Shared, V2_3, Fields};
static_assert(IsWellFormed(Type024HardwareSecurity));

} // namespace Protocol::SMBIOS::Catalogue
