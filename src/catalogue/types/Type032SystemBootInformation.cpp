// Type 32, System Boot Information.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "Reserved",   6,  Hex, V2_3},
    {0x0A, "BootStatus", 10, Hex, V2_3},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type032SystemBootInformation{32, Instances::Shared, V2_3, Fields};

} // namespace Protocol::SMBIOS::Catalogue
