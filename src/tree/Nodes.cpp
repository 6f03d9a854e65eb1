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

// The node at `path` + `separator` + `name`, made where there is none.
TreeNode& SMBIOSProtocolImpl::NodeAt(std::string_view path, std::string_view separator, std::string_view name)
{
    const std::string_view kept = Store->Keep(path, separator, name);
    const auto [entry, isNew] = ResultNodes.try_emplace(kept, nullptr);
    if (isNew)
        entry->second = &Store->NewNode(kept);
    else
        Store->Forget(kept);
    return *entry->second;
}

// Lists a child below `parent`, ahead of what the caller stores there.
TreeNode& SMBIOSProtocolImpl::ListChild(TreeNode& parent, std::string_view separator, std::string_view name)
{
    Store->CountWrite();
    const std::size_t nodesBefore = ResultNodes.size();
    TreeNode& child = NodeAt(parent.Path, separator, name);
    if (ResultNodes.size() == nodesBefore)
        parent.ListsRepeats = true;
    parent.Children.push_back(&child);
    return child;
}

TreeNode& SMBIOSProtocolImpl::ListInstance(TreeNode& parent, std::size_t index)
{
    return ListChild(parent, "[", std::to_string(index) + "]");
}

TreeNode& SMBIOSProtocolImpl::AddInstance(TreeNode& parent, std::size_t index)
{
    TreeNode& instance = ListInstance(parent, index);
    Overwrite(instance, NODE_INNER);
    return instance;
}

TreeNode& SMBIOSProtocolImpl::AddLeaf(TreeNode& parent, std::string_view name, std::string_view value)
{
    TreeNode& leaf = ListChild(parent, "/", name);
    Overwrite(leaf, NODE_LEAF, value);
    return leaf;
}

TreeNode& SMBIOSProtocolImpl::AddInner(TreeNode& parent, std::string_view name)
{
    TreeNode& inner = ListChild(parent, "/", name);
    Overwrite(inner, NODE_INNER);
    return inner;
}

TreeNode& SMBIOSProtocolImpl::StoreInner(std::string_view path)
{
    TreeNode& node = NodeAt(path);
    Overwrite(node, NODE_INNER);
    return node;
}

// Stores a new node in the place of `node`, whose value and children go.
void SMBIOSProtocolImpl::Overwrite(TreeNode& node, _NODE_TYPE type, std::string_view value)
{
    Store->CountWrite();
    node.IsLeaf = type == NODE_LEAF;
    node.Value = Store->Keep(value);
    node.Children.clear();
    node.ListsRepeats = false;
}

// `name` begins with its "/". A parent without a node gets no child.
void SMBIOSProtocolImpl::AddNode(std::string_view parent, std::string_view name, std::string_view value,
                                 _NODE_TYPE type)
{
    TreeNode* const parentNode = FindNode(parent);
    if (parentNode == nullptr)
        return;
    TreeNode& child = ListChild(*parentNode, {}, name);
    Overwrite(child, type, type == NODE_LEAF ? value : std::string_view());
}

void SMBIOSProtocolImpl::InsertLeafXNode(std::string_view value, std::string_view path)
{
    Overwrite(NodeAt(path), NODE_LEAF, value);
}

// Copies the subtree at `source` to new paths: of each path, all up to the first `separator` gives way to
// `path`. The separator is sought behind RootPath, which may hold that character too; it stands in `source`
// itself.
void SMBIOSProtocolImpl::FillInfo(std::string_view path, std::string_view source, char separator)
{
    const TreeNode* const top = FindNode(source);
    if (top == nullptr)
        return;
    const std::string_view tail = source.substr(source.find(separator, RootPath.size()) + 1);
    CopySubtree(*top, NodeAt(path, tail));
}

void SMBIOSProtocolImpl::CopySubtree(const TreeNode& source, TreeNode& copy)
{
    Overwrite(copy, source.IsLeaf ? NODE_LEAF : NODE_INNER, source.Value);
    if (source.IsLeaf)
        return;
    const auto nameOf = [&](const TreeNode& child) { return child.Path.substr(source.Path.size()); };
    copy.Children.reserve(source.Children.size());
    for (const TreeNode* child : source.Children)
        ListChild(copy, {}, nameOf(*child));
    source.ForEachDistinctChild(
        [&](const TreeNode& child) { CopySubtree(child, NodeAt(copy.Path, nameOf(child))); });
}

// The nodes belong to the store that copies of this object share: they go with its last holder.
void SMBIOSProtocolImpl::DeleteResultMap(std::string_view /*path*/)
{
    ResultNodes.clear();
    Store.reset();
}

} // namespace Protocol::SMBIOS
