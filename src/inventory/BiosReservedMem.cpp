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
    unsigned int number = 0;
    if (leaf != nullptr)
        std::from_chars(leaf->Value.data(), leaf->Value.data() + leaf->Value.size(), number);
    return number;
}

} // namespace

void SMBIOSProtocolImpl::InitBiosReservedMem()
{
    ReservedMemAddress = NumberIn(FindNode("/SMBIOS/Type133/Address"));
    ReservedMemSize = NumberIn(FindNode("/SMBIOS/Type133/Size"));
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
