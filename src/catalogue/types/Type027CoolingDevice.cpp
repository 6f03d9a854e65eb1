// Type 27, Cooling Device.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row DeviceTypeRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Fan"},
    {0x04, "Centrifugal Blower"},
    {0x05, "Chip Fan"},
    {0x06, "Cabinet Fan"},
    {0x07, "Power Supply Fan"},
    {0x08, "Heat Pipe"},
    {0x09, "Integrated Refrigeration"},
    {0x10, "Active Cooling"},
    {0x11, "Passive Cooling"},
};

constexpr Row StatusRows[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "OK"},
    {0x04, "Non-critical"},
    {0x05, "Critical"},
    {0x06, "Non-recoverable"},
};

constexpr Part DeviceTypeAndStatusParts[] = {
    {"DeviceType", 0, 4, Enumeration(DeviceTypeRows)},
    {"Status",     5, 7, Enumeration(StatusRows)},
};

constexpr Field Fields[] = {
    {0x04, "TemperatureProbeHandle", 2,               Decimal, V2_2},
    {0x06, "DeviceTypeAndStatus",    1,               Decimal, V2_2, Packed(DeviceTypeAndStatusParts)},
    {0x07, "CoolingUnitGroup",       1,               Decimal, V2_2},
    {0x08, "OEMDefined",             4,               Decimal, V2_2},
    {0x0C, "NominalSpeed",           2,               Decimal, V2_2},
    {0x0E, "Description",            StringReference, String,  V2_7},
};

static_assert(IsWellFormed(Fields));

} // namespace

const Type Type027CoolingDevice{27, Instances::Indexed, Later, Fields};

} // namespace Protocol::SMBIOS::Catalogue
