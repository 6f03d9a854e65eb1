// The packed bytes of a processor.
//
//   Status              bits 2:0 state, bit 6 socket populated
//   VoltageCapability   bit 7 set: bits 6:0 present voltage in tenths of a volt
//                       bit 7 clear: bits 0, 1, 2 the voltages that the socket takes

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "catalogue/ValueTable.h"
#include "tree/NodeStore.h"

namespace Protocol::SMBIOS {

std::string SMBIOSProtocolImpl::CalculateProcessorStatus(int value, const ValueTable& table, TreeNode& node)
{
    ResultNodes->Overwrite(node, NODE_INNER);
    AddNode(node, "CPUStatus", NODE_LEAF, table.Text((value & 7) + 1));
    AddNode(node, "CPU Socket Populated", NODE_LEAF, (value & 0x40) != 0 ? "Yes" : "No");
    return {};
}

// Written without printf, whose decimal point depends on the program's locale.
std::string SMBIOSProtocolImpl::CalculateProcessorVoltage(int value, const ValueTable& table)
{
    if ((value & 0x80) != 0) {
        const int tenths = value - 0x80;
        return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + "0V";
    }
    std::string text;
    for (int bit = 0; bit < 3; ++bit) {
        if ((value >> bit & 1) != 0)
            text.append(table.Text(bit + 1)).append("Supported\n\t\t");
    }
    return text;
}

} // namespace Protocol::SMBIOS
