// The raw SPD bytes of memory modules, which OEM structures (type 132) place in physical memory. A live
// object alone reads them; its root is "/SMBIOS".
//
// Many makers use structures of this type for things of their own, whose bytes are no address. A range that
// the system keeps from this process is therefore left out, and costs no one the tree.

#include "SMBIOSProtocol/Logger.h"
#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "services/LockedMap.h"
#include "services/MemMapDriverImpl.h"
#include "tree/NodeStore.h"

#include <algorithm>
#include <charconv>

namespace Protocol::SMBIOS {

namespace {

constexpr const char* Function = "Protocol::SMBIOS::SMBIOSProtocolImpl::DumpMemorySPD";

/// At most this much of a block is read, whatever its structure says.
constexpr unsigned int MaxBlockSize = 512;

unsigned int NumberOf(std::string_view text)
{
    unsigned int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

// "0x92 0x10 ", with the blank behind the last byte too.
std::string HexText(const unsigned char* bytes, unsigned int length)
{
    static constexpr char Digits[] = "0123456789ABCDEF";
    std::string text;
    for (unsigned int i = 0; i < length; ++i) {
        text += "0x";
        text += Digits[bytes[i] >> 4];
        text += Digits[bytes[i] & 0xF];
        text += ' ';
    }
    return text;
}

bool IsOffered(unsigned int address, unsigned int length)
{
    std::string reason;
    if (OS::Driver::MemMapDriverImpl().Offers(address, length, reason))
        return true;
    LOGGER::Logger::CreateInstance().Log(2, SourceFile, Function, __LINE__,
                                         "Leaving out %u bytes of SPD data at %Xh: %s", length, address,
                                         reason.c_str());
    return false;
}

} // namespace

void SMBIOSProtocolImpl::DumpMemorySPD()
{
    const TreeNode* const blocks = ResultNodes->Find("/SMBIOS/Type132");
    if (blocks == nullptr)
        return;
    for (TreeNode* const block : ResultNodes->Children(*blocks)) {
        const TreeNode* const start = ResultNodes->FindChild(*block, "Address");
        const TreeNode* const size = ResultNodes->FindChild(*block, "Size");
        if (start == nullptr || size == nullptr)
            continue;
        const unsigned int address = NumberOf(start->Value);
        const unsigned int length = std::min(NumberOf(size->Value), MaxBlockSize);
        if (!IsOffered(address, length))
            continue;
        MapUnderLock(address, length, EntryMapping, Function, __LINE__);
        const auto* const bytes = static_cast<const unsigned char*>(EntryMapping->Pointer);
        AddNode(*block, "SPD_RAW", NODE_LEAF, ResultNodes->Keep(HexText(bytes, length)));
    }
}

} // namespace Protocol::SMBIOS
