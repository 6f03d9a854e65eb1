// Type 34, Management Device.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row TypeRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "National Semiconductor LM75"},
    {0x04, "National Semiconductor LM78"},
    {0x05, "National Semiconductor LM79"},
    {0x06, "National Semiconductor LM80"},
    {0x07, "National Semiconductor LM81"},
    {0x08, "Analog Devices ADM9240"},
    {0x09, "Dallas Semiconductor DS1780"},
    {0x0A, "Maxim 1617"},
    {0x0B, "Genesys GL518SM"},
    {0x0C, "Winbond W83781D"},
    {0x0D, "Holtek HT82H791"},
};

constexpr Row AddressTypeRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "I/O Port"},
    {0x04, "Memory"},
    {0x05, "SM Bus"},
};

constexpr Field Fields[] = {
    {0x04, "Description", StringReference, String,  V2_3, "what the device is or where it sits"},
    {0x05, "Type",        1,               Decimal, V2_3, "kind of device",                      Enumeration(TypeRows)},
    {0x06, "Address",     4,               Decimal, V2_3, "address of the device"},
    {0x0A, "AddressType", 1,               Decimal, V2_3, "how `Address` is reached",            Enumeration(AddressTypeRows)},
};

} // namespace

constexpr Type Type034ManagementDevice{34, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type034ManagementDevice));

} // namespace Protocol::SMBIOS::Catalogue
