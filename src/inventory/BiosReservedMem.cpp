// The physical memory that the firmware keeps for itself, which an OEM structure (type 133) gives. A live
// object alone knows it; its root is "/SMBIOS".

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

#include <charconv>

namespace Protocol::SMBIOS {

namespace {

// The number in a leaf, 0 where there is no leaf.
unsigned int NumberIn(const TreeNode* leaf)
{
    const std::string_view text = leaf == nullptr ? std::string_view() : leaf->Value;
    unsigned int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

} // namespace

void SMBIOSProtocolImpl::InitBiosReservedMem()
{
    ReservedMemAddress = NumberIn(ResultNodes->Find("/SMBIOS/Type133/Address"));
    ReservedMemSize = NumberIn(ResultNodes->Find("/SMBIOS/Type133/Size"));
}

// NOLINTNEXTLINE(readability-make-member-function-const): the public signature is not const
void SMBIOSProtocolImpl::GetBiosReservedMem(unsigned int* address, unsigned int* size)
{
    if (address != nullptr)
        *address = ReservedMemAddress;
    if (size != nullptr)
        *size = ReservedMemSize;
}

} // namespace Protocol::SMBIOS
