// The running machine's table: through the 32-bit entry point in the BIOS segment of physical memory, and
// where there is none, through the operating system's raw firmware block (RawFirmwareBlock.cpp).

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "acquisition/EntryPoint.h"
#include "services/Failure.h"
#include "services/LockedMap.h"
#include "services/MemMapDriverImpl.h"
#include "structures/LittleEndian.h"

namespace Protocol::SMBIOS {

namespace {

using OS::Driver::ScanAddress;
using OS::Driver::ScanLength;
using OS::Driver::ScanStep;

constexpr const char* Function = "Protocol::SMBIOS::SMBIOSProtocolImpl::GetSMBiosEntryPtr";

// The first entry point of which all that is read lies in the segment; null where there is none.
const unsigned char* FindEntryPoint(const unsigned char* segment)
{
    std::size_t offset = EntryPoint::FindAnchor(segment, ScanLength);
    while (offset + EntryPoint::SizeWithTable <= ScanLength) {
        const unsigned char* const candidate = segment + offset;
        if (offset % ScanStep == 0 && offset + candidate[EntryPoint::LengthOffset] <= ScanLength)
            return candidate;
        offset = EntryPoint::FindAnchor(segment, ScanLength, offset + 1);
    }
    return nullptr;
}

} // namespace

void SMBIOSProtocolImpl::GetSMBiosEntryPtr()
{
    MapUnderLock(ScanAddress, ScanLength, EntryMapping, Function, __LINE__);
    const unsigned char* const entryPoint =
        FindEntryPoint(static_cast<unsigned char*>(EntryMapping->Pointer));
    if (entryPoint == nullptr) {
        ReadRawFirmwareBlock();
        return;
    }
    if (!EntryPoint::ChecksumHolds(entryPoint))
        RaiseFailure(RESULT_BAD_CHECKSUM);

    const auto address =
        static_cast<unsigned int>(LittleEndian(entryPoint + EntryPoint::TableAddressOffset, 4));
    const auto length =
        static_cast<unsigned short>(LittleEndian(entryPoint + EntryPoint::TableLengthOffset, 2));
    SMBiosVersion = EntryPoint::VersionText(entryPoint[EntryPoint::MajorVersionOffset],
                                            entryPoint[EntryPoint::MinorVersionOffset]);
    MapUnderLock(address, length, TableMapping, Function, __LINE__);
    TableBase = static_cast<unsigned char*>(TableMapping->Pointer);
    TableLength = length;
}

} // namespace Protocol::SMBIOS
