// The two passes that fill the tree: every structure under its type, then the structures that others name by
// handle, each under the field that names it.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"

namespace Protocol::SMBIOS {

namespace {

constexpr std::size_t MaxLinkDepth = 4;
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

void SMBIOSProtocolImpl::FillSMBIOSDataTables()
{
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
