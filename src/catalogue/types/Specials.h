// Special values that fields of several types share.

#pragma once

#include "catalogue/Definition.h"

namespace Protocol::SMBIOS::Catalogue {

inline constexpr Row UnknownIf0[] = {{0, "unknown"}};
inline constexpr Row UnknownIfFF[] = {{0xFF, "unknown"}};
inline constexpr Row UnknownIf8000[] = {{0x8000, "unknown"}};
inline constexpr Row UnknownIfFF00[] = {{0xFF00, "unknown"}};
inline constexpr Row UnknownIfFFFF[] = {{0xFFFF, "unknown"}};
inline constexpr Row UnknownIf80000000[] = {{0x80000000, "unknown"}};
inline constexpr Row NoneIf8000[] = {{0x8000, "none"}};
inline constexpr Row NoneIfFFFF[] = {{0xFFFF, "none"}};
inline constexpr Row InNoneIf0[] = {{0, "in none"}};
inline constexpr Row NotGivenIf0[] = {{0, "not given"}};
inline constexpr Row NotApplicableIfFF[] = {{0xFF, "not applicable"}};
inline constexpr Row NotApplicableIfFFFF[] = {{0xFFFF, "not applicable"}};
inline constexpr Row NotSupportedIfFF[] = {{0xFF, "not supported"}};

} // namespace Protocol::SMBIOS::Catalogue
