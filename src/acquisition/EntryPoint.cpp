#include "acquisition/EntryPoint.h"

#include <cstring>
#include <numeric>

namespace Protocol::SMBIOS::EntryPoint {

bool HasAnchor(const unsigned char* bytes)
{
    return std::memcmp(bytes, "_SM_", AnchorSize) == 0;
}

bool ChecksumHolds(const unsigned char* entryPoint)
{
    return std::accumulate(entryPoint, entryPoint + entryPoint[LengthOffset], 0U) % 256 == 0;
}

std::string VersionText(unsigned char major, unsigned char minor)
{
    return std::to_string(major) + "." + std::to_string(minor);
}

} // namespace Protocol::SMBIOS::EntryPoint
