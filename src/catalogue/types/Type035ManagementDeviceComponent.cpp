// Type 35, Management Device Component.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "Description",            StringReference, String,  V2_3, "what the component is"},
    {0x05, "ManagementDeviceHandle", 2,               Decimal, V2_3, "handle of the Type 34 structure"},
    {0x07, "ComponentHandle",        2,               Decimal, V2_3, "handle of the probe (Type 26, 28 or 29) or cooling device (Type 27)"},
    {0x09, "ThresholdHandle",        2,               Decimal, V2_3, "handle of the Type 36 structure; FFFFh if there is none"},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type035ManagementDeviceComponent{35, Instances::Indexed, Later, Fields};

} // namespace Protocol::SMBIOS::Catalogue
