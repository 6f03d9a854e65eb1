// Type 7, Cache Information.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row CacheConfigurationRows[] = {
    {1, "L1Cache"},
    {2, "L2Cache"},
    {3, "L3Cache"},
    {4, "L4Cache"},
    {5, "L5Cache"},
    {6, "L6Cache"},
    {7, "L7Cache"},
    {8, "L8Cache"},
    {9, "NotSocketed"},
    {10, "Socketed"},
    {11, "Internal"},
    {12, "External"},
    {13, "Reserved"},
    {14, "Unknown"},
    {15, "Disabled"},
    {16, "Enabled"},
    {17, "Write Through"},
    {18, "Write Back"},
    {19, "Varies with Memory Address"},
    {20, "Unknown"},
};

constexpr Row CacheSizeRows[] = {
    {1, "1K Granularity"},
    {2, "64K Granularity"},
};

constexpr Row SramTypeRows[] = {
    {0, "Other", Later},
    {1, "Unknown", Later},
    {2, "Non Burst"},
    {3, "Burst"},
    {4, "Pipeline Burst"},
    {5, "Synchronous"},
    {6, "Asynchronous"},
};

constexpr Row ErrorCorrectionTypeRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "None"},
    {0x04, "Parity"},
    {0x05, "Single bit ECC"},
    {0x06, "Multi bit ECC"},
};

constexpr Row SystemCacheTypeRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Instruction"},
    {0x04, "Data"},
    {0x05, "Unified"},
};

constexpr Row AssociativityRows[] = {
    {0x00, "Reserved"},
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Direct Mapped"},
    {0x04, "2 way Set Associative"},
    {0x05, "4 way Set Associative"},
    {0x06, "Fully Associative"},
    {0x07, "8 way Set Associative"},
    {0x08, "16 way Set Associative"},
    {0x09, "12 way Set Associative", V2_7},
    {0x0A, "24 way Set Associative", V2_7},
    {0x0B, "32 way Set Associative", V2_7},
    {0x0C, "48 way Set Associative", V2_7},
    {0x0D, "64 way Set Associative", V2_7},
    {0x0E, "20 way Set Associative", V2_7},
};

constexpr Row GranularityRows[] = {
    {0x00, "1K Granularity"},
    {0x01, "64K Granularity"},
};

constexpr Part MaxCacheSize2Parts[] = {
    {"MaxCacheSize2Value",       0, 30},
    {"MaxCacheSize2Granularity", 31, 31, Enumeration(GranularityRows)},
};

constexpr Part InstalledSize2Parts[] = {
    {"InstalledSize2Value",       0, 30},
    {"InstalledSize2Granularity", 31, 31, Enumeration(GranularityRows)},
};

constexpr Row MaxCacheSizeSpecials[] = {{0xFFFF, "see `MaxCacheSize2`"}};

constexpr Row InstalledSizeSpecials[] = {{0xFFFF, "see `InstalledSize2`"}};

constexpr Field Fields[] = {
    {0x04, "SocketDesignation",   StringReference, String,  V2_3, "socket name on the board"},
    {0x05, "CacheConfiguration",  2,               Decimal, V2_3, "level, place and mode",                         DecodedBy(TableKind::CacheConfiguration, CacheConfigurationRows)},
    {0x07, "MaxCacheSize",        2,               Decimal, V2_3, "largest size",                                  DecodedBy(TableKind::CacheSize, CacheSizeRows).In(Unit::KilobytesOr64Kilobytes).Except(MaxCacheSizeSpecials)},
    {0x09, "InstalledSize",       2,               Decimal, V2_3, "installed size",                                DecodedBy(TableKind::CacheSize, CacheSizeRows).In(Unit::KilobytesOr64Kilobytes).Except(InstalledSizeSpecials)},
    {0x0B, "SupportedSRAMType",   2,               Decimal, V2_3, "supported SRAM types",                          Bits(SramTypeRows)},
    {0x0D, "CurrentSRAMType",     2,               Decimal, V2_3, "current SRAM type",                             Bits(SramTypeRows)},
    {0x0F, "CacheSpeed",          1,               Decimal, V2_3, "speed",                                         In(Unit::Nanoseconds).Except(UnknownIf0)},
    {0x10, "ErrorCorrectionType", 1,               Decimal, V2_3, "error correction",                              Enumeration(ErrorCorrectionTypeRows)},
    {0x11, "SystemCacheType",     1,               Decimal, V2_3, "kind of cache",                                 Enumeration(SystemCacheTypeRows)},
    {0x12, "Associativity",       1,               Decimal, V2_3, "associativity",                                 Enumeration(AssociativityRows)},
    {0x13, "MaxCacheSize2",       4,               Decimal, V3_1, "largest size (sizes above 2047 MB included)",   Packed(MaxCacheSize2Parts).In(Unit::KilobytesOr64Kilobytes)},
    {0x17, "InstalledSize2",      4,               Decimal, V3_1, "installed size (sizes above 2047 MB included)", Packed(InstalledSize2Parts).In(Unit::KilobytesOr64Kilobytes)},
};

} // namespace

constexpr Type Type007CacheInformation{7, Instances::Indexed, V2_3, Fields};
static_assert(IsWellFormed(Type007CacheInformation));

} // namespace Protocol::SMBIOS::Catalogue
