// A structure whose type no table describes: one of an OEM, or newer than the newest revision.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "Data", RestOfRecord, Hex, V2_0, "all bytes behind the header"},
};

static_assert(IsWellFormed(Fields));

constexpr Section Sections[] = {
    StringList("String"),
};

static_assert(IsWellFormed(Sections));

} // namespace

const Type TypeWithoutTable{0, Instances::Indexed, Later, Fields, Sections};

} // namespace Protocol::SMBIOS::Catalogue
