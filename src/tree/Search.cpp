// The queries: a look at the node at a path, and copies of it and everything below it.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

#include <iterator>
#include <tuple>
#include <typeinfo>
#include <utility>

namespace Protocol::SMBIOS {

namespace {

using Results = std::map<std::string, _XNode>;

// A leaf can list children behind its value: two structures share a handle, and where the first has a link,
// the second, decoded over it, has a plain value. What the link leads to is then listed there, and not
// descended into.
void CopyNode(const TreeNode& node, _XNode& copy)
{
    copy.NodeType = node.IsLeaf ? NODE_LEAF : NODE_INNER;
    copy.Items.clear();
    copy.Items.reserve(node.ChildCount + (node.IsLeaf ? 1U : 0U));
    if (node.IsLeaf)
        copy.Items.emplace_back(node.Value);
    for (const TreeNode* child : node.Listed())
        copy.Items.emplace_back(child->Path);
    copy.Attributes.clear();
    copy.Flag = 0;
}

// Copies a subtree in the order of the map, nearly: each entry goes in ahead of the same later one, which
// saves the map its search for the place. Where a path of another branch sorts in between, the map searches.
class SubtreeCopy {
public:
    SubtreeCopy(const TreeNode& top, Results& results)
        : Target(results), Later(results.lower_bound(std::string(top.Path)))
    {
        Copy(top);
    }

private:
    void Copy(const TreeNode& node)
    {
        // emplace_hint looks at the hint once; try_emplace would do so twice.
        const auto entry = Target.emplace_hint(Later, std::piecewise_construct,
                                               std::forward_as_tuple(node.Path), std::forward_as_tuple());
        CopyNode(node, entry->second);
        if (node.IsLeaf)
            return;
        const TreeNode* previous = nullptr;
        for (const TreeNode* child : node.ByPath()) {
            if (child != previous)
                Copy(*child);
            previous = child;
        }
    }

    Results& Target;
    Results::iterator Later;
};

} // namespace

ISMBIOSProtocol::~ISMBIOSProtocol() = default;

NodeView SMBIOSProtocolImpl::Find(std::string_view path) const
{
    return NodeView(ResultNodes ? ResultNodes->Find(path) : nullptr); // moved from, an object has no nodes
}

void SMBIOSProtocolImpl::SMBiosSearch(std::string path, std::map<std::string, _XNode>& results)
{
    const TreeNode* const node = Find(path).Node;
    if (node == nullptr)
        return;

    // A derived class may see each descent. Without one, nobody can tell, and the walk need not look up
    // paths.
    if (typeid(*this) == typeid(SMBIOSProtocolImpl)) {
        SubtreeCopy(*node, results);
        return;
    }
    if (!node->IsLeaf) {
        for (const TreeNode* child : node->Distinct())
            SMBiosSearch(std::string(child->Path), results);
    }
    CopyNode(*node, results[path]);
}

} // namespace Protocol::SMBIOS
