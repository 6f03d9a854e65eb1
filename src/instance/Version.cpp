// The version, from the library's side.

#include "SMBIOSProtocol/Version.h"

namespace Protocol::SMBIOS {

const char* Version() noexcept
{
    return SMBIOSPROTOCOL_VERSION;
}

} // namespace Protocol::SMBIOS
