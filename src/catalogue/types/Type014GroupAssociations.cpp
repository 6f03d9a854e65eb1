// Type 14, Group Associations.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "GroupName", StringReference, String, V2_0, "name of the group"},
};

constexpr Field ItemFields[] = {
    {0x00, "ItemType",   1, Decimal, V2_0, "structure type of the member"},
    {0x01, "ItemHandle", 2, Decimal, V2_0, "the member",                   HandleOf()},
};

constexpr Section Sections[] = {
    Group("Item", 0x05, AsManyAsFit, BytesEach(3), ItemFields),
};

} // namespace

constexpr Type Type014GroupAssociations{14, Instances::Indexed, Later, Fields, Sections};
static_assert(IsWellFormed(Type014GroupAssociations));

} // namespace Protocol::SMBIOS::Catalogue
