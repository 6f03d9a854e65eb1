// Type 12, System Configuration Options.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "StringCount", 1, Decimal, V2_0, "number of strings of the structure"},
};

constexpr Section Sections[] = {
    StringList("String"),
};

} // namespace

constexpr Type Type012SystemConfigurationOptions{12, Instances::Indexed, Later, Fields, Sections};
static_assert(IsWellFormed(Type012SystemConfigurationOptions));

} // namespace Protocol::SMBIOS::Catalogue
