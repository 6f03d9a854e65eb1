// The running machine's table: through the 32-bit entry point in the BIOS segment of physical memory, and
// where there is none, through the operating system's raw firmware block (RawFirmwareBlock.cpp).

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "acquisition/EntryPoint.h"
#include "services/Failure.h"
#include "services/LockedMap.h"

namespace Protocol::SMBIOS {

namespace {

constexpr const char* Function = "Protocol::SMBIOS::SMBIOSProtocolImpl::GetSMBiosEntryPtr";
constexpr unsigned long SegmentAddress = 0xF0000;
constexpr unsigned int SegmentLength = 65534;

// The entry point is sought on 4-byte steps, not the standard's 16: some firmware shifts it.
constexpr std::size_t ScanStep = 4;

// The first entry point of which all that is read lies in the segment; null where there is none.
const unsigned char* FindEntryPoint(const unsigned char* segment)
{
    std::size_t offset = EntryPoint::FindAnchor(segment, SegmentLength);
    while (offset + EntryPoint::SizeWithTable <= SegmentLength) {
        const unsigned char* const candidate = segment + offset;
        if (offset % ScanStep == 0 && offset + candidate[EntryPoint::LengthOffset] <= SegmentLength)
            return candidate;
        offset = EntryPoint::FindAnchor(segment, SegmentLength, offset + 1);
    }
    return nullptr;
}

unsigned int LittleEndian(const unsigned char* bytes, std::size_t width)
{
    unsigned int value = 0;
    for (std::size_t i = width; i-- > 0;)
        value = value << 8 | bytes[i];
    return value;
}

} // namespace

void SMBIOSProtocolImpl::GetSMBiosEntryPtr()
{
    MapUnderLock(SegmentAddress, SegmentLength, EntryMapping, Function, __LINE__);
    const unsigned char* const entryPoint =
        FindEntryPoint(static_cast<unsigned char*>(EntryMapping->Pointer));
    if (entryPoint == nullptr) {
        ReadRawFirmwareBlock();
        return;
    }
    if (!EntryPoint::ChecksumHolds(entryPoint))
        RaiseFailure(RESULT_BAD_CHECKSUM);

    const unsigned int address = LittleEndian(entryPoint + EntryPoint::TableAddressOffset, 4);
    const unsigned int length = LittleEndian(entryPoint + EntryPoint::TableLengthOffset, 2);
    SMBiosVersion = EntryPoint::VersionText(entryPoint[EntryPoint::MajorVersionOffset],
                                            entryPoint[EntryPoint::MinorVersionOffset]);
    MapUnderLock(address, length, TableMapping, Function, __LINE__);
    TableBase = static_cast<unsigned char*>(TableMapping->Pointer);
    TableLength = static_cast<unsigned short>(length);
}

} // namespace Protocol::SMBIOS
