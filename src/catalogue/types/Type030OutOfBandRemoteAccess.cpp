// Type 30, Out-of-Band Remote Access.

#include "catalogue/Types.h"

namespace Protocol::SMBIOS::Catalogue {
namespace {

constexpr Row ConnectionsRows[] = {
    {0, "Inbound Connection Enabled"},
    {1, "Outbound Connection Enabled"},
};

constexpr Field Fields[] = {
    {0x04, "ManufacturerName", StringReference, String,  V2_2, "manufacturer of the remote access facility"},
    {0x05, "Connections",      1,               Decimal, V2_2, "permitted connections",                      Bits(ConnectionsRows)},
};

} // namespace

constexpr Type Type030OutOfBandRemoteAccess{30, Instances::Indexed, Later, Fields};
static_assert(IsWellFormed(Type030OutOfBandRemoteAccess));

} // namespace Protocol::SMBIOS::Catalogue
