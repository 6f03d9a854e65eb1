// Type 40, Additional Information.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "NumberOfAdditionalInformationEntries", 1, Decimal, V2_6, "number of entries"},
};

constexpr Field AdditionalInformationEntryFields[] = {
    {0x00, "EntryLength",      1,               Decimal, V2_6, "length of the entry (this byte included, at least 6)", In(Unit::Bytes)},
    {0x01, "ReferencedHandle", 2,               Decimal, V2_6, "the one that the entry adds to",                       HandleOf()},
    {0x03, "ReferencedOffset", 1,               Decimal, V2_6, "offset of the field within that structure"},
    {0x04, "String",           StringReference, String,  V2_6, "text for that field"},
    {0x05, "Value",            RestOfRecord,    Hex,     V2_6, "value for that field, of its kind and size"},
};

constexpr Section Sections[] = {
    Group("AdditionalInformationEntry", 0x05, CountAt(0x04), AsEachSaysAt(0x00, 0, 5), AdditionalInformationEntryFields),
};

} // namespace

constexpr Type Type040AdditionalInformation{40, Instances::Indexed, Later, Fields, Sections};
static_assert(IsWellFormed(Type040AdditionalInformation));

} // namespace Protocol::SMBIOS::Catalogue
