// The two passes that fill the tree: every structure under its type, then the structures that others name by
// handle, each under the field that names it.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "SMBIOSProtocol/TreeTooLarge.h"
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

} // namespace

std::size_t SMBIOSProtocolImpl::ExpectedNodes() const
{
    std::size_t fieldCount = 0;
    for (const auto& [type, table] : TypeTables)
        fieldCount += table.Instances.size() * table.Definition->Fields.size();
    return std::min<std::size_t>(NodesOfAField * fieldCount, TreeTooLarge::MaxWrites / WritesOfANode);
}

void SMBIOSProtocolImpl::FillSMBIOSDataTables()
{
    ResultNodes->Reserve(ExpectedNodes());
    for (const unsigned char type : CataloguedTypes())
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
