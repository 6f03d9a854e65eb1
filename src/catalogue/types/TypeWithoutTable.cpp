// A structure whose type no table describes: one of an OEM, or newer than the newest revision.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "Data", RestOfRecord, Hex, V2_0, "all bytes behind the header"},
};

constexpr Section Sections[] = {
    StringList("String"),
};

} // namespace

constexpr Type TypeWithoutTable{0, Instances::Indexed, Later, Fields, Sections};
static_assert(IsWellFormed(TypeWithoutTable));

} // namespace Protocol::SMBIOS::Catalogue
