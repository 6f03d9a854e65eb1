// Type 40, Additional Information.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "NumberOfAdditionalInformationEntries", 1, Decimal, V2_6, "number of entries"},
};

static_assert(IsWellFormed(Fields));

constexpr Field AdditionalInformationEntryFields[] = {
    {0x00, "EntryLength",      1,               Decimal, V2_6, "length of the entry in bytes, this byte included, at least 6"},
    {0x01, "ReferencedHandle", 2,               Decimal, V2_6, "handle of the structure that the entry adds to"},
    {0x03, "ReferencedOffset", 1,               Decimal, V2_6, "offset of the field within that structure"},
    {0x04, "String",           StringReference, String,  V2_6, "text for that field"},
    {0x05, "Value",            RestOfRecord,    Hex,     V2_6, "value for that field, of its kind and size"},
};

constexpr Section Sections[] = {
    Group("AdditionalInformationEntry", 0x05, CountAt(0x04), AsEachSaysAt(0x00, 0, 5), AdditionalInformationEntryFields),
};

static_assert(IsWellFormed(Sections));

} // namespace

const Type Type040AdditionalInformation{40, Instances::Indexed, Later, Fields, Sections};

} // namespace Protocol::SMBIOS::Catalogue
