#include "SMBIOSProtocol/NodeView.h"

#include "tree/NodeStore.h"

namespace Protocol::SMBIOS {

std::string_view NodeView::Path() const noexcept
{
    return Node == nullptr ? std::string_view() : Node->Path;
}

std::string_view NodeView::Name() const noexcept
{
    if (Node == nullptr)
        return {};
    std::string_view name = Node->Path.substr(Node->ParentSize);
    if (!name.empty() && name.front() == '/')
        name.remove_prefix(1);
    return name;
}

bool NodeView::IsLeaf() const noexcept
{
    return Node != nullptr && Node->IsLeaf;
}

std::string_view NodeView::Value() const noexcept
{
    return Node == nullptr ? std::string_view() : Node->Value;
}

NodeRange NodeView::Children() const noexcept
{
    const NodeRow row = Node == nullptr ? NodeRow{} : Node->Listed();
    return {row.First, row.Count};
}

NodeRange NodeView::DistinctChildren() const noexcept
{
    const NodeRow row = Node == nullptr ? NodeRow{} : Node->Distinct();
    return {row.First, row.Count};
}

NodeView NodeView::Child(std::string_view name) const noexcept
{
    for (const NodeView child : IsLeaf() ? NodeRange() : Children()) {
        if (child.Name() == name)
            return child;
    }
    return {};
}

} // namespace Protocol::SMBIOS
