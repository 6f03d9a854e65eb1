// Type 13, BIOS Language Information.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row FlagsRows[] = {
    {1, "Current Language Format/Long Format"},
    {2, "Current Language Format/Abbreviated Format"},
};

constexpr Field Fields[] = {
    {0x04, "InstallableLanguages", 1,               Decimal, V2_3, "number of languages"},
    {0x05, "Flags",                1,               Decimal, V2_3, "format of the language texts", DecodedBy(TableKind::Flags, FlagsRows)},
    {0x06, "Reserved",             15,              Hex,     V2_3, "reserved bytes"},
    {0x15, "CurrentLanguage",      StringReference, String,  V2_3, "current language text"},
};

constexpr Section Sections[] = {
    StringList("String"),
};

} // namespace

constexpr Type Type013BiosLanguage{13, Instances::Shared, V2_3, Fields, Sections};
static_assert(IsWellFormed(Type013BiosLanguage));

} // namespace Protocol::SMBIOS::Catalogue
