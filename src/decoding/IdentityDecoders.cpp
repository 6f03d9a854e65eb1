// The packed values of firmware, system and management structures.
//
//   Flags                      bit 0 abbreviated language format
//   HardwareSecuritySettings   four two-bit states, from the lowest bits up: front panel reset, administrator
//                              password, keyboard password, power-on password
//   IPMISpecRev                bits 7:4 major, bits 3:0 minor
//   BIOSRomSize                size in units of 64K, less 1
//   UUID                       16 bytes; the first three groups are little-endian numbers of 4, 2 and 2 bytes

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "catalogue/ValueTable.h"
#include "tree/NodeStore.h"

namespace Protocol::SMBIOS {

std::string SMBIOSProtocolImpl::CalculateFlag(int value, const ValueTable& table)
{
    return std::string(table.Text((value & 1) != 0 ? 2 : 1));
}

std::string SMBIOSProtocolImpl::CalculateHardwareSecuritySettings(int value, const ValueTable& table,
                                                                  TreeNode& node)
{
    static constexpr std::string_view Children[] = {"FrontPanelReset", "AdministratorPassword",
                                                    "KeyboardPassword", "PowerOnPassword"};
    ResultNodes->Overwrite(node, NODE_INNER);
    for (const std::string_view child : Children) {
        AddNode(node, child, NODE_LEAF, table.Text((value & 3) + 1));
        value >>= 2;
    }
    return {};
}

std::string SMBIOSProtocolImpl::CalculateIPMISpecRev(int value)
{
    return ConvertIntToString(static_cast<unsigned int>(value >> 4 & 0xF)) + "." +
           ConvertIntToString(static_cast<unsigned int>(value & 0xF));
}

// In kilobytes.
std::string SMBIOSProtocolImpl::CalculateBIOSRomSize(int value)
{
    return ConvertIntToString((static_cast<unsigned long long>(value) + 1) * 64);
}

// `text` is 32 hexadecimal digits in the order of the bytes.
std::string SMBIOSProtocolImpl::interpretUUID(std::string_view text)
{
    return reverse(text.substr(0, 8))
        .append("-")
        .append(reverse(text.substr(8, 4)))
        .append("-")
        .append(reverse(text.substr(12, 4)))
        .append("-")
        .append(text.substr(16, 4))
        .append("-")
        .append(text.substr(20));
}

// Reverses the order of the bytes in a text of two digits each.
std::string SMBIOSProtocolImpl::reverse(std::string_view text)
{
    std::string reversed;
    for (std::size_t i = text.size(); i >= 2; i -= 2)
        reversed.append(text.substr(i - 2, 2));
    return reversed;
}

} // namespace Protocol::SMBIOS
