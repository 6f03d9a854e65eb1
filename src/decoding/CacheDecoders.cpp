// The packed words of a cache.
//
//   MaxCacheSize, InstalledSize   bits 14:0 size, bit 15 its unit
//   CacheConfiguration            bits 2:0 level less 1, bit 3 socketed, bits 6:5 location,
//                                 bit 7 enabled at boot, bits 9:8 operation mode

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "catalogue/ValueTable.h"
#include "tree/NodeStore.h"

namespace Protocol::SMBIOS {

// The size stays a count of units: 1K or 64K.
std::string SMBIOSProtocolImpl::CalculateCacheSize(int value, const ValueTable& table, TreeNode& node)
{
    ResultNodes->Overwrite(node, NODE_INNER);
    AddNode(node, "Size", NODE_LEAF,
            ResultNodes->Keep(ConvertIntToString(static_cast<unsigned int>(value & 0x7FFF))));
    AddNode(node, "Unit", NODE_LEAF, table.Text((value & 0x8000) != 0 ? 2 : 1));
    return {};
}

std::string SMBIOSProtocolImpl::CalculateCacheConfiguration(int value, const ValueTable& table,
                                                            TreeNode& node)
{
    const struct {
        std::string_view Name;
        int Row;
    } children[] = {
        {"CacheLevel", (value & 7) + 1},           {"Cache Socketed", (value & 8) != 0 ? 10 : 9},
        {"Location", (value >> 5 & 3) + 11},       {"At Boot Time", (value & 0x80) != 0 ? 16 : 15},
        {"Operation Mode", (value >> 8 & 3) + 17},
    };
    ResultNodes->Overwrite(node, NODE_INNER);
    for (const auto& child : children)
        AddNode(node, child.Name, NODE_LEAF, table.Text(child.Row));
    return {};
}

} // namespace Protocol::SMBIOS
