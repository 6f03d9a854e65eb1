// The running machine's table, of its whole length: from the operating system's raw SMBIOS block, and where
// there is none, through an entry point in the BIOS segment of physical memory.

#include "SMBIOSProtocol/ResultStatus.h"
#include "SMBIOSProtocol/TableImage.h"
#include "acquisition/EntryPoint.h"
#include "services/Failure.h"
#include "services/FirmwareTable.h"
#include "services/LockedMap.h"
#include "services/MemMapDriverImpl.h"

#include <algorithm>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

namespace Protocol::SMBIOS {

namespace {

using Bytes = EntryPoint::Bytes;

constexpr const char* Function = "Protocol::SMBIOS::TableImage::OfThisMachine";

// The operating system's block; empty where it publishes none. It may grow between the question for its size
// and its copy.
Bytes PublishedBlock()
{
    Bytes block;
    for (int attempt = 0; attempt < 4; ++attempt) {
        const unsigned long size = Firmware::GetSystemFirmwareTable(Firmware::RawSmbiosProvider, 0,
                                                                    block.empty() ? nullptr : block.data(),
                                                                    static_cast<unsigned long>(block.size()));
        const bool isWhole = size <= block.size();
        block.resize(size);
        if (isWhole)
            return block;
    }
    return {};
}

Bytes Mapped(unsigned long address, unsigned int length)
{
    OS::Driver::MappingOwner owner;
    MapUnderLock(address, length, owner, Function, __LINE__);
    const auto* const first = static_cast<const unsigned char*>(owner->Pointer);
    return {first, first + length};
}

// An entry point with all that follows it in the segment, and what it tells.
struct Located {
    Bytes EntryPoint;
    EntryPoint::Facts Facts;
};

// The system's words for its error, where there was one.
std::string Reason(unsigned long systemError)
{
    if (systemError == 0)
        return "";
    return " (" + std::system_category().message(static_cast<int>(systemError)) + ")";
}

// The first sound entry point of the 64-bit form, which may name the larger table; else the first of the
// 32-bit form. One that gives its table no length is passed over.
Located FindEntryPoint(const Bytes& segment, unsigned long systemError)
{
    std::optional<Located> found;
    bool isOneDamaged = false;
    for (std::size_t offset = 0; offset < segment.size(); offset += OS::Driver::ScanStep) {
        EntryPoint::Facts facts;
        const EntryPoint::Fault fault =
            EntryPoint::Read(segment.data() + offset, segment.size() - offset, facts);
        isOneDamaged = isOneDamaged || fault == EntryPoint::Fault::Damaged;
        if (facts.TableLength == 0 || (found && facts.IsLengthExact))
            continue;
        found = Located{{segment.begin() + static_cast<std::ptrdiff_t>(offset), segment.end()}, facts};
        if (!facts.IsLengthExact)
            break;
    }
    if (found)
        return *std::move(found);
    if (isOneDamaged)
        RaiseFailure(RESULT_BAD_CHECKSUM);
    RaiseFailure(RESULT_NO_TABLE,
                 "No SMBIOS table was found: the operating system publishes none" + Reason(systemError) +
                     ", and the BIOS segment names none. Run with administrator rights, and outside a "
                     "container; some virtual machines have none.");
}

} // namespace

TableImage TableImage::OfThisMachine()
{
    const Bytes block = PublishedBlock();
    const unsigned long error = Firmware::GetLastError();
    if (block.size() > Firmware::TableOffset) {
        TableImage published = FromBlock(block);
        if (!published.Structures.empty())
            return published;
    }

    const Located found = FindEntryPoint(Mapped(OS::Driver::ScanAddress, OS::Driver::ScanLength), error);
    return FromParts(found.EntryPoint,
                     Mapped(static_cast<unsigned long>(found.Facts.TableAddress),
                            static_cast<unsigned int>(std::min(found.Facts.TableLength, MaxTableSize))));
}

} // namespace Protocol::SMBIOS
