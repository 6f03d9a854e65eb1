// The operating system's raw SMBIOS block. Of the length of its table the low 16 bits count.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "acquisition/EntryPoint.h"
#include "services/Failure.h"
#include "services/FirmwareTable.h"
#include "services/LockedMap.h"
#include "structures/LittleEndian.h"
#include "tree/NodeStore.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace Protocol::SMBIOS {

namespace {

struct Free {
    void operator()(unsigned char* block) const { std::free(block); }
};
using Block = std::unique_ptr<unsigned char, Free>;

template <typename... Arguments>
void Log(int line, const char* format, Arguments... arguments)
{
    LOGGER::Logger::CreateInstance().Log(
        2, SourceFile, "Protocol::SMBIOS::SMBIOSProtocolImpl::GetSMBiosEntryPtr", line, format, arguments...);
}

} // namespace

void SMBIOSProtocolImpl::ReadRawFirmwareBlock()
{
    Log(__LINE__, "_SM_ not found,Alternate approach : Trying to to dump SMBIOS Raw data..");
    unsigned long size = 0;
    GetRawSmbiosData(nullptr, size);
    Log(__LINE__, "Success in getting Raw SMBIOS Data length : 0x%x", static_cast<unsigned int>(size));

    const Block staging(static_cast<unsigned char*>(std::calloc(std::max(size, 1UL), 1)));
    if (staging == nullptr) {
        Log(__LINE__, "Smbios Buffer allocation failed");
        RaiseFailure(RESULT_OUT_OF_MEMORY);
    }
    // A block without room for its header is no better than none.
    if (GetRawSmbiosData(staging.get(), size) != 0 || size < Firmware::TableOffset) {
        Log(__LINE__, "Failed to get Raw SMBIOS Data");
        RaiseFailure(RESULT_NO_TABLE);
    }
    Log(__LINE__, "Success in getting Raw SMBIOS Data ( Total : 0x%x Bytes )",
        static_cast<unsigned int>(size));

    RawTableBuffer = static_cast<unsigned char*>(std::malloc(size));
    if (RawTableBuffer == nullptr)
        RaiseFailure(RESULT_OUT_OF_MEMORY);
    ResultNodes->OwnRawBlock(RawTableBuffer);
    std::memcpy(RawTableBuffer, staging.get(), size);
    Log(__LINE__, "Successfully copied Raw SMBIOS Data");

    // The length is the firmware's word: it does not reach beyond the block.
    const std::size_t length =
        static_cast<std::size_t>(LittleEndian(RawTableBuffer + Firmware::LengthOffset, 2));
    TableBase = RawTableBuffer + Firmware::TableOffset;
    TableLength = static_cast<unsigned short>(std::min<std::size_t>(length, size - Firmware::TableOffset));
    SMBiosVersion = EntryPoint::VersionText(RawTableBuffer[Firmware::MajorVersionOffset],
                                            RawTableBuffer[Firmware::MinorVersionOffset]);
}

// A size query where `buffer` is null and `size` 0: `size` becomes the block's size, and the result means
// nothing. Else a fetch into `buffer`: 0, or the system's error.
int SMBIOSProtocolImpl::GetRawSmbiosData(unsigned char* buffer, unsigned long& size)
{
    LOGGER::Logger::CreateInstance().Log(2, SourceFile,
                                         "Protocol::SMBIOS::SMBIOSProtocolImpl::GetRawSmbiosData", __LINE__,
                                         "Entering GetRawSmbiosData()");
    if (buffer == nullptr && size == 0) {
        size = Firmware::GetSystemFirmwareTable(Firmware::RawSmbiosProvider, 0, nullptr, 0);
        return -1;
    }
    if (Firmware::GetSystemFirmwareTable(Firmware::RawSmbiosProvider, 0, buffer, size) != 0)
        return 0;
    return static_cast<int>(Firmware::GetLastError());
}

} // namespace Protocol::SMBIOS
