// From the structures of a type to nodes.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "decoding/HexNumber.h"
#include "decoding/StructureDecoder.h"
#include "tree/NodeStore.h"

#include <algorithm>

namespace Protocol::SMBIOS {

namespace {

constexpr int HandleDigits = 4;

} // namespace

// Decodes structures of `type` below the node at `path`: all of them where `handle` is 0, each indexed one
// below a node of its own; else those with this handle, by version all directly below `path`, with the newest
// catalogue the last in the table alone.
const SMBTable& SMBIOSProtocolImpl::SMBiosDataTable(std::string_view path, int type, int handle)
{
    const SMBTable& table = TypeTables.at(static_cast<unsigned char>(type));
    TreeNode& top = ResultNodes->At(path);
    const bool isNewest = table.ReadAs == Catalogue::Newest;
    const auto decode = [&](const SMBiosStructure& structure, TreeNode& node) {
        if (isNewest || handle != 0)
            AddNode(node, "Handle", NODE_LEAF, ResultNodes->Keep(HexNumber(structure.Handle, HandleDigits)));
        StructureDecoder(*this, table, structure).Decode(node);
    };

    if (handle == 0) {
        for (std::size_t i = 0; i < table.Instances.size(); ++i) {
            const bool hasOwnNode = table.Definition->Indexed || (isNewest && i > 0);
            decode(table.Instances[i], hasOwnNode ? ResultNodes->AddInstance(top, i + 1) : top);
        }
        return table;
    }

    if (isNewest) {
        decode(*StructuresByHandle.at(static_cast<unsigned short>(handle)), top);
        return table;
    }

    const auto byHandle = [&](std::size_t position, int wanted) {
        return table.Instances[position].Handle < wanted;
    };
    auto position =
        std::lower_bound(table.InstancesByHandle.begin(), table.InstancesByHandle.end(), handle, byHandle);
    for (; position != table.InstancesByHandle.end() && table.Instances[*position].Handle == handle;
         ++position)
        decode(table.Instances[*position], top);
    return table;
}

} // namespace Protocol::SMBIOS
