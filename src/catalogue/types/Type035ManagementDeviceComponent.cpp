// Type 35, Management Device Component.

#include "catalogue/Types.h"
#include "catalogue/types/Specials.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Field Fields[] = {
    {0x04, "Description",            StringReference, String,  V2_3, "what the component is"},
    {0x05, "ManagementDeviceHandle", 2,               Decimal, V2_3, "the device",                                 HandleOf(34)},
    {0x07, "ComponentHandle",        2,               Decimal, V2_3, "the probe, or the cooling device (Type 27)", HandleOf(26, 27, 28, 29)},
    {0x09, "ThresholdHandle",        2,               Decimal, V2_3, "the thresholds",                             HandleOf(36).Except(NoneIfFFFF)},
};

} // namespace

constexpr Type Type035ManagementDeviceComponent{35, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type035ManagementDeviceComponent));

} // namespace Protocol::SMBIOS::Catalogue
