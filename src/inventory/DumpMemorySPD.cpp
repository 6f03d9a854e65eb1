// The raw SPD bytes of memory modules, which OEM structures (type 132) place in physical memory. A live
// object alone reads them; its root is "/SMBIOS".

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "services/LockedMap.h"
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

} // namespace

void SMBIOSProtocolImpl::DumpMemorySPD()
{
    const TreeNode* const blocks = FindNode("/SMBIOS/Type132");
    if (blocks == nullptr)
        return;
    for (TreeNode* const block : blocks->Children) {
        const std::string path(block->Path);
        const TreeNode* const address = FindNode(path + "/Address");
        const TreeNode* const size = FindNode(path + "/Size");
        if (address == nullptr || size == nullptr)
            continue;
        const unsigned int length = std::min(NumberOf(size->Value), MaxBlockSize);
        MapUnderLock(NumberOf(address->Value), length, EntryMapping, Function, __LINE__);
        AddLeaf(*block, "SPD_RAW", HexText(static_cast<const unsigned char*>(EntryMapping->Pointer), length));
    }
}

} // namespace Protocol::SMBIOS
