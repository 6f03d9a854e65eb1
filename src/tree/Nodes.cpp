// What is written to the tree. The tree is flat: nodes by full path, each with a list of its children.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

#include <unordered_set>

namespace Protocol::SMBIOS {

// Adds a node below `parent`. The value `lasting` of a leaf must live as long as the tree.
TreeNode& SMBIOSProtocolImpl::AddNode(TreeNode& parent, std::string_view name, _NODE_TYPE type,
                                      std::string_view lasting)
{
    TreeNode& node = ResultNodes->ListChild(parent, "/", name);
    ResultNodes->Overwrite(node, type, lasting);
    return node;
}

// Makes a leaf of `node`, with a copy of `value`.
void SMBIOSProtocolImpl::InsertLeafXNode(std::string_view value, TreeNode& node)
{
    ResultNodes->Overwrite(node, NODE_LEAF, ResultNodes->Keep(value));
}

// Copies the subtree at `source` into the place of `copy`.
void SMBIOSProtocolImpl::FillInfo(const TreeNode& source, TreeNode& copy)
{
    ResultNodes->CountText(source.Value);
    ResultNodes->Overwrite(copy, source.IsLeaf ? NODE_LEAF : NODE_INNER, source.Value);
    if (source.IsLeaf)
        return;
    for (const TreeNode* child : ResultNodes->Children(source))
        ResultNodes->ListChild(copy, {}, child->Path.substr(source.Path.size()));
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
