// Type 11, OEM Strings.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "StringCount", 1, Decimal, V2_3, "number of strings of the structure"},
};

constexpr Section Sections[] = {
    StringList("String"),
};

} // namespace

constexpr Type Type011OemStrings{11, Instances::Shared, V2_3, Fields, Sections};
static_assert(IsWellFormed(Type011OemStrings));

} // namespace Protocol::SMBIOS::Catalogue
