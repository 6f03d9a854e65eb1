// A table image that the caller holds: the structure table at its start, a 32-bit entry point anywhere in it.
// The entry point gives the version alone; its table address and length play no part.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "acquisition/EntryPoint.h"
#include "services/Failure.h"

namespace Protocol::SMBIOS {

void SMBIOSProtocolImpl::GetSMBiosEntryPtr(unsigned char* image, unsigned long long size)
{
    if (image == nullptr || size == 0)
        RaiseFailure(RESULT_NO_TABLE);
    const std::size_t offset = EntryPoint::FindAnchor(image, size);
    const unsigned char* const entryPoint = image + offset;
    if (!EntryPoint::IsComplete(entryPoint, size - offset))
        RaiseFailure(RESULT_NO_TABLE);
    if (!EntryPoint::ChecksumHolds(entryPoint))
        RaiseFailure(RESULT_BAD_CHECKSUM);

    SMBiosVersion = EntryPoint::VersionText(entryPoint[EntryPoint::MajorVersionOffset],
                                            entryPoint[EntryPoint::MinorVersionOffset]);
    TableBase = image;
    TableLength = static_cast<unsigned short>(size);
}

} // namespace Protocol::SMBIOS
