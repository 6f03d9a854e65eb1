// What fills the tree: its top, with a node for each type; then every structure under its type; then the
// structures that others name by handle, each under the field that names it.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "SMBIOSProtocol/TreeTooLarge.h"
#include "catalogue/Definition.h"
#include "tree/NodeStore.h"

#include <algorithm>

namespace Protocol::SMBIOS {

namespace {

constexpr std::size_t MaxLinkDepth = 4;
constexpr std::size_t WritesOfANode = 2; // listed, then stored

/// A field's own node, those of its bits or parts, and the copies of all in the inventories.
constexpr std::size_t NodesOfAField = 3;

constexpr std::size_t FromTable = static_cast<std::size_t>(-1);

// Whether link `index` leads on: not back to a handle already followed on the way to it, and not too deep.
// `foundBehind` gives for each link the link behind which it was found, or FromTable.
bool MayFollow(std::size_t index, const std::vector<SubTypeLink>& links,
               const std::vector<std::size_t>& foundBehind)
{
    std::size_t depth = 1;
    for (std::size_t i = foundBehind[index]; i != FromTable; i = foundBehind[i]) {
        if (links[i].LinkedHandle == links[index].LinkedHandle)
            return false;
        ++depth;
    }
    return depth <= MaxLinkDepth;
}

using Tables = std::unordered_map<unsigned char, SMBTable>;

// About as many nodes as the tree will have.
std::size_t ExpectedNodes(const Tables& tables)
{
    std::size_t fieldCount = 0;
    for (const auto& [number, table] : tables) {
        const Catalogue::Type& type = *table.Definition;
        std::size_t ofOne = type.FieldCountIn(table.ReadAs);
        for (std::size_t i = 0; i < table.SectionCount; ++i)
            ofOne += type.Sections[i].FieldCount;
        fieldCount += table.Instances.size() * ofOne;
    }
    return std::min<std::size_t>(NodesOfAField * fieldCount, TreeTooLarge::MaxWrites / WritesOfANode);
}

// By rising number: a tree is the same on every platform, whatever the order of its hash map.
std::vector<unsigned char> TypesOf(const Tables& tables)
{
    std::vector<unsigned char> types;
    for (const auto& [type, table] : tables)
        types.push_back(type);
    std::sort(types.begin(), types.end());
    return types;
}

} // namespace

void SMBIOSProtocolImpl::FillSMBIOSDataTables()
{
    ResultNodes->Reserve(ExpectedNodes(TypeTables));
    const std::vector<unsigned char> types = TypesOf(TypeTables);

    TreeNode& root = ResultNodes->At(RootPath);
    ResultNodes->Overwrite(root, NODE_INNER);
    for (const unsigned char type : types)
        AddNode(root, "Type" + std::to_string(type), NODE_INNER);
    AddNode(root, "ProcessorInfo", NODE_INNER);
    AddNode(root, "MemoryArray", NODE_INNER);

    for (const unsigned char type : types)
        SMBiosDataTable(RootPath + "/Type" + std::to_string(type), type, 0);
}

void SMBIOSProtocolImpl::FillSubTypeDataTables()
{
    std::vector<std::size_t> foundBehind(SubTypeLinks.size(), FromTable);

    // Decoding behind a link can find further links, which are then handled in the same loop.
    for (std::size_t i = 0; i < SubTypeLinks.size(); ++i) {
        const SubTypeLink& link = SubTypeLinks[i];
        const auto target = StructuresByHandle.find(static_cast<unsigned short>(link.LinkedHandle));
        if (target == StructuresByHandle.end() || !MayFollow(i, SubTypeLinks, foundBehind))
            continue;
        SMBiosDataTable(link.FieldPath, target->second->Type, link.LinkedHandle);
        foundBehind.resize(SubTypeLinks.size(), i);
    }
}

} // namespace Protocol::SMBIOS
