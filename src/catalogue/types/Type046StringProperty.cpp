// Type 46, String Property.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row StringPropertyIDRows[] = {
    {0x0000, "Reserved"},
    {0x0001, "UEFI device path"},
};

constexpr Field Fields[] = {
    {0x04, "StringPropertyID",    2,               Decimal, V3_5, "which property the text gives", Enumeration(StringPropertyIDRows)},
    {0x06, "StringPropertyValue", StringReference, String,  V3_5, "text of the property"},
    {0x07, "ParentHandle",        2,               Decimal, V3_5, "the one that has the property", HandleOf()},
};

} // namespace

constexpr Type Type046StringProperty{46, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type046StringProperty));

} // namespace Protocol::SMBIOS::Catalogue
