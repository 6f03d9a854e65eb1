// The query: the node at a path and everything below it, as copies.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

#include <algorithm>
#include <iterator>
#include <typeinfo>

namespace Protocol::SMBIOS {

namespace {

using Results = std::map<std::string, _XNode>;

void CopyNode(const TreeNode& node, _XNode& copy)
{
    copy.NodeType = node.NodeType;
    copy.Items.clear();
    copy.Items.reserve(node.Children.size() + (node.NodeType == NODE_LEAF ? 1 : 0));
    if (node.NodeType == NODE_LEAF)
        copy.Items.emplace_back(node.Value);
    for (const TreeNode* child : node.Children)
        copy.Items.emplace_back(child->Path);
    copy.Attributes.clear();
    copy.Flag = 0;
}

// Copies a subtree in the order of the map, nearly: each entry goes in right behind the one before it, which
// saves the map its search for the place. Where a path of another branch sorts in between, the map searches.
class SubtreeCopy {
public:
    explicit SubtreeCopy(Results& results) : Target(results), Behind(results.end()) {}

    void Copy(const TreeNode& node)
    {
        const auto entry = Target.try_emplace(Behind, std::string(node.Path));
        CopyNode(node, entry->second);
        Behind = std::next(entry);
        if (node.NodeType != NODE_INNER)
            return;

        const std::size_t first = Pending.size();
        Pending.insert(Pending.end(), node.Children.begin(), node.Children.end());
        const auto begin = Pending.begin() + static_cast<std::ptrdiff_t>(first);
        std::sort(begin, Pending.end(), [](auto* left, auto* right) { return left->Path < right->Path; });
        Pending.erase(std::unique(begin, Pending.end()), Pending.end());
        for (std::size_t i = first; i < Pending.size(); ++i)
            Copy(*Pending[i]);
        Pending.resize(first);
    }

private:
    Results& Target;
    Results::iterator Behind;
    std::vector<const TreeNode*> Pending; ///< children still to copy, of all nodes from the top down
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
        SubtreeCopy(results).Copy(*node);
        return;
    }
    if (node->NodeType == NODE_INNER)
        node->ForEachDistinctChild(
            [&](const TreeNode& child) { SMBiosSearch(std::string(child.Path), results); });
    CopyNode(*node, results[path]);
}

} // namespace Protocol::SMBIOS
