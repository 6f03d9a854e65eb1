// Type 11, OEM Strings.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "StringCount", 1, Decimal, V2_3, "number of strings of the structure"},
};

static_assert(IsWellFormed(Fields));

constexpr Section Sections[] = {
    StringList("String"),
};

static_assert(IsWellFormed(Sections));

} // namespace

const Type Type011OemStrings{11, Instances::Shared, V2_3, Fields, Sections};

} // namespace Protocol::SMBIOS::Catalogue
