// The query: the node at a path and everything below it, as copies.

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
    for (std::size_t i = 0; i < node.ChildCount; ++i)
        copy.Items.emplace_back(node.Row[i]->Path);
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
        const TreeNode* const* const byPath = node.Row + node.ChildCount;
        for (std::size_t i = 0; i < node.ChildCount; ++i) {
            if (i == 0 || byPath[i] != byPath[i - 1])
                Copy(*byPath[i]);
        }
    }

    Results& Target;
    Results::iterator Later;
};

} // namespace

ISMBIOSProtocol::~ISMBIOSProtocol() = default;

void SMBIOSProtocolImpl::SMBiosSearch(std::string path, std::map<std::string, _XNode>& results)
{
    const TreeNode* const node = FindNode(path);
    if (node == nullptr)
        return;

    // A derived class may see each descent. Without one, nobody can tell, and the walk need not look up
    // paths.
    if (typeid(*this) == typeid(SMBIOSProtocolImpl)) {
        SubtreeCopy(*node, results);
        return;
    }
    if (!node->IsLeaf) {
        for (const NodeView child : NodeView(node).DistinctChildren())
            SMBiosSearch(std::string(child.Path()), results);
    }
    CopyNode(*node, results[path]);
}

} // namespace Protocol::SMBIOS
