// The tree's writing operations. The tree is flat: a map from full path to node, in which a node names its
// children by their paths.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

namespace Protocol::SMBIOS {

TreeNode* SMBIOSProtocolImpl::FindNode(std::string_view path) const
{
    const auto entry = ResultNodes.find(path);
    return entry == ResultNodes.end() ? nullptr : entry->second;
}

TreeNode& SMBIOSProtocolImpl::NodeAt(std::string_view path)
{
    const std::string_view kept = Store->Keep(path);
    const auto [entry, isNew] = ResultNodes.try_emplace(kept, nullptr);
    if (isNew)
        entry->second = &Store->NewNode(kept);
    else
        Store->Forget(kept);
    return *entry->second;
}

// A node that already stands at the path gives way: it becomes the new one, without the old value and
// children.
TreeNode& SMBIOSProtocolImpl::StoreNode(std::string_view path, _NODE_TYPE type, std::string_view value)
{
    TreeNode& node = NodeAt(path);
    Overwrite(node, type, value);
    return node;
}

void SMBIOSProtocolImpl::Overwrite(TreeNode& node, _NODE_TYPE type, std::string_view value)
{
    Store->CountWrite();
    node.NodeType = type;
    node.Value = Store->Keep(value);
    node.Children.clear();
    node.ListsRepeats = false;
}

// Lists `path` below `parent`, ahead of the node that the caller stores there.
TreeNode& SMBIOSProtocolImpl::ListChild(TreeNode& parent, std::string_view path)
{
    Store->CountWrite();
    const std::size_t nodesBefore = ResultNodes.size();
    TreeNode& child = NodeAt(path);
    if (ResultNodes.size() == nodesBefore)
        parent.ListsRepeats = true;
    parent.Children.push_back(&child);
    return child;
}

TreeNode& SMBIOSProtocolImpl::AddChild(TreeNode& parent, std::string_view path, _NODE_TYPE type,
                                       std::string_view value)
{
    TreeNode& child = ListChild(parent, path);
    Overwrite(child, type, value);
    return child;
}

void SMBIOSProtocolImpl::AddNode(std::string_view parent, std::string_view name, std::string_view value,
                                 _NODE_TYPE type)
{
    TreeNode* const parentNode = FindNode(parent);
    if (parentNode == nullptr)
        return;
    AddChild(*parentNode, std::string(parent).append(name), type,
             type == NODE_LEAF ? value : std::string_view());
}

void SMBIOSProtocolImpl::InsertLeafXNode(std::string_view value, std::string_view path)
{
    StoreNode(path, NODE_LEAF, value);
}

// Copies the subtree at `source` to new paths: of each path, all up to the first `separator` gives way to
// `path`. The separator is sought behind RootPath, which may hold that character too.
void SMBIOSProtocolImpl::FillInfo(std::string_view path, std::string_view source, char separator)
{
    const TreeNode* const top = FindNode(source);
    if (top != nullptr)
        CopySubtree(*top, path, separator);
}

void SMBIOSProtocolImpl::CopySubtree(const TreeNode& source, std::string_view path, char separator)
{
    const auto newPath = [&](std::string_view oldPath) {
        const std::size_t cut = oldPath.find(separator, RootPath.size());
        const std::string_view tail = cut == std::string_view::npos ? oldPath : oldPath.substr(cut + 1);
        return std::string(path).append(tail);
    };

    TreeNode& copy = StoreNode(newPath(source.Path), source.NodeType, source.Value);
    if (source.NodeType != NODE_INNER)
        return;
    for (const TreeNode* child : source.Children)
        ListChild(copy, newPath(child->Path));
    source.ForEachDistinctChild([&](const TreeNode& child) { CopySubtree(child, path, separator); });
}

// The nodes belong to the store that copies of this object share: they go with its last holder.
void SMBIOSProtocolImpl::DeleteResultMap(std::string_view /*path*/)
{
    ResultNodes.clear();
    Store.reset();
}

} // namespace Protocol::SMBIOS
