// A table image that the caller holds: the structure table at its start, a 32-bit entry point anywhere in it.
// The entry point gives the version alone; its table address and length play no part.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "acquisition/EntryPoint.h"
#include "services/Failure.h"

namespace Protocol::SMBIOS {

namespace {

// The first entry point in the image, at any offset; null where there is none.
const unsigned char* FindEntryPoint(const unsigned char* image, std::size_t size)
{
    for (std::size_t offset = 0; offset + EntryPoint::AnchorSize <= size; ++offset) {
        if (EntryPoint::HasAnchor(image + offset))
            return image + offset;
    }
    return nullptr;
}

// Whether all that is read of the entry point lies within the `size` bytes from its start.
bool IsComplete(const unsigned char* entryPoint, std::size_t size)
{
    return size >= EntryPoint::SizeWithVersion && size >= entryPoint[EntryPoint::LengthOffset];
}

} // namespace

void SMBIOSProtocolImpl::GetSMBiosEntryPtr(unsigned char* image, unsigned long long size)
{
    if (image == nullptr || size == 0)
        RaiseFailure(RESULT_NO_TABLE);
    const unsigned char* const entryPoint = FindEntryPoint(image, size);
    if (entryPoint == nullptr || !IsComplete(entryPoint, static_cast<std::size_t>(image + size - entryPoint)))
        RaiseFailure(RESULT_NO_TABLE);
    if (!EntryPoint::ChecksumHolds(entryPoint))
        RaiseFailure(RESULT_BAD_CHECKSUM);

    SMBiosVersion = EntryPoint::VersionText(entryPoint[EntryPoint::MajorVersionOffset],
                                            entryPoint[EntryPoint::MinorVersionOffset]);
    TableBase = image;
    TableLength = static_cast<unsigned short>(size);
}

} // namespace Protocol::SMBIOS
