// Type 40, Additional Information.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "NumberOfAdditionalInformationEntries", 1, Decimal, V2_6},
};

static_assert(IsWellFormed(Fields));

constexpr Field AdditionalInformationEntryFields[] = {
    {0x00, "EntryLength",      1,               Decimal, V2_6},
    {0x01, "ReferencedHandle", 2,               Decimal, V2_6},
    {0x03, "ReferencedOffset", 1,               Decimal, V2_6},
    {0x04, "String",           StringReference, String,  V2_6},
    {0x05, "Value",            RestOfRecord,    Hex,     V2_6},
};

constexpr Section Sections[] = {
    Group("AdditionalInformationEntry", 0x05, CountAt(0x04), AsEachSaysAt(0x00, 0, 5), AdditionalInformationEntryFields),
};

static_assert(IsWellFormed(Sections));

} // namespace

const Type Type040AdditionalInformation{40, Instances::Indexed, Later, Fields, Sections};

} // namespace Protocol::SMBIOS::Catalogue
