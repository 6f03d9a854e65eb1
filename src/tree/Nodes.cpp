// The tree's writing operations. The tree is flat: nodes by full path, each with a list of its children.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

#include <unordered_set>

namespace Protocol::SMBIOS {

TreeNode* SMBIOSProtocolImpl::FindNode(std::string_view path) const
{
    return ResultNodes ? ResultNodes->Find(path) : nullptr; // an object that was moved from has no nodes
}

const TreeNode* SMBIOSProtocolImpl::FindChild(const TreeNode& parent, std::string_view name) const
{
    const std::size_t size = parent.Path.size() + 1 + name.size();
    for (const TreeNode* child : ResultNodes->Children(parent)) {
        if (child->Path.size() == size && child->Path.substr(parent.Path.size() + 1) == name)
            return child;
    }
    return nullptr;
}

// The node at `path` + `separator` + `name`, made where there is none.
TreeNode& SMBIOSProtocolImpl::NodeAt(std::string_view path, std::string_view separator, std::string_view name)
{
    return (*ResultNodes)[ResultNodes->FindOrAdd(path, separator, name)];
}

// Lists a child below `parent`, ahead of what the caller stores there.
TreeNode& SMBIOSProtocolImpl::ListChild(TreeNode& parent, std::string_view separator, std::string_view name)
{
    ResultNodes->CountWrite();
    const std::size_t nodesBefore = ResultNodes->Size();
    const std::uint32_t number = ResultNodes->FindOrAdd(parent.Path, separator, name);
    TreeNode& child = (*ResultNodes)[number];
    if (ResultNodes->Size() == nodesBefore)
        parent.ListsRepeats = true;
    child.ParentSize = static_cast<std::uint32_t>(parent.Path.size());
    ResultNodes->List(parent, number);
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

TreeNode& SMBIOSProtocolImpl::AddNode(TreeNode& parent, std::string_view name, _NODE_TYPE type,
                                      std::string_view lasting)
{
    TreeNode& node = ListChild(parent, "/", name);
    Overwrite(node, type, lasting);
    return node;
}

TreeNode& SMBIOSProtocolImpl::AddLeaf(TreeNode& parent, std::string_view name, std::string_view value)
{
    return AddNode(parent, name, NODE_LEAF, ResultNodes->Keep(value));
}

// A leaf whose value is a text of the library itself, of which the tree needs no copy.
TreeNode& SMBIOSProtocolImpl::AddWord(TreeNode& parent, std::string_view name, std::string_view constant)
{
    return AddNode(parent, name, NODE_LEAF, constant);
}

void SMBIOSProtocolImpl::InsertLeafXNode(std::string_view value, TreeNode& node)
{
    Overwrite(node, NODE_LEAF, ResultNodes->Keep(value));
}

// Stores a new node in the place of `node`, whose value and children go. The value `lasting` must live as
// long as the tree.
void SMBIOSProtocolImpl::Overwrite(TreeNode& node, _NODE_TYPE type, std::string_view lasting)
{
    ResultNodes->CountWrite();
    node.IsLeaf = type == NODE_LEAF;
    node.Value = lasting;
    node.ChildCount = 0;
    node.ListsRepeats = false;
}

// Copies the subtree at `source` into the place of `copy`.
void SMBIOSProtocolImpl::FillInfo(const TreeNode& source, TreeNode& copy)
{
    ResultNodes->CountText(source.Value);
    Overwrite(copy, source.IsLeaf ? NODE_LEAF : NODE_INNER, source.Value);
    if (source.IsLeaf)
        return;
    for (const TreeNode* child : ResultNodes->Children(source))
        ListChild(copy, {}, child->Path.substr(source.Path.size()));
    std::unordered_set<const TreeNode*> copied;
    ListingRange::Iterator childCopy = ResultNodes->Children(copy).begin();
    for (const TreeNode* child : ResultNodes->Children(source)) {
        if (!source.ListsRepeats || copied.insert(child).second)
            FillInfo(*child, **childCopy);
        ++childCopy;
    }
}

// Copies of this object share the nodes: they go with their last holder.
void SMBIOSProtocolImpl::DeleteResultMap(std::string_view /*path*/)
{
    ResultNodes.reset();
}

} // namespace Protocol::SMBIOS
