// Type 12, System Configuration Options.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "StringCount", 1, Decimal, V2_0, "number of strings of the structure"},
};

static_assert(IsWellFormed(Fields));

constexpr Section Sections[] = {
    StringList("String"),
};

static_assert(IsWellFormed(Sections));

} // namespace

const Type Type012SystemConfigurationOptions{12, Instances::Indexed, Later, Fields, Sections};

} // namespace Protocol::SMBIOS::Catalogue
