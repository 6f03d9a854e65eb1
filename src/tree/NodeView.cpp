#include "SMBIOSProtocol/NodeView.h"

#include "tree/NodeStore.h"

namespace Protocol::SMBIOS {

std::string_view NodeView::Path() const noexcept
{
    return Node->Path;
}

std::string_view NodeView::Name() const noexcept
{
    std::string_view name = Node->Path.substr(Node->ParentSize);
    if (!name.empty() && name.front() == '/')
        name.remove_prefix(1);
    return name;
}

bool NodeView::IsLeaf() const noexcept
{
    return Node->IsLeaf;
}

std::string_view NodeView::Value() const noexcept
{
    return Node->Value;
}

NodeRange NodeView::Children() const noexcept
{
    const NodeRow row = Node->Listed();
    return {row.First, row.Count};
}

NodeRange NodeView::DistinctChildren() const noexcept
{
    const NodeRow row = Node->Distinct();
    return {row.First, row.Count};
}

} // namespace Protocol::SMBIOS
