// Type 14, Group Associations.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "GroupName", StringReference, String, V2_0, "name of the group"},
};

static_assert(IsWellFormed(Fields));

constexpr Field ItemFields[] = {
    {0x00, "ItemType",   1, Decimal, V2_0, "structure type of the member"},
    {0x01, "ItemHandle", 2, Decimal, V2_0, "handle of the member"},
};

constexpr Section Sections[] = {
    Group("Item", 0x05, AsManyAsFit, BytesEach(3), ItemFields),
};

static_assert(IsWellFormed(Sections));

} // namespace

const Type Type014GroupAssociations{14, Instances::Indexed, Later, Fields, Sections};

} // namespace Protocol::SMBIOS::Catalogue
