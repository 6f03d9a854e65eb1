#include "SMBIOSProtocol/NodeView.h"

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
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
    return {Node->Row, Node->ChildCount};
}

NodeRange NodeView::DistinctChildren() const noexcept
{
    if (!Node->ListsRepeats)
        return Children();
    const TreeNode* const* const first = Node->Row + std::size_t{2} * Node->ChildCount;
    const TreeNode* const* end = first;
    while (*end != nullptr)
        ++end;
    return {first, static_cast<std::size_t>(end - first)};
}

NodeView SMBIOSProtocolImpl::Find(std::string_view path) const
{
    return NodeView(FindNode(path));
}

} // namespace Protocol::SMBIOS
