// The nodes of a tree and the memory behind them. An object and its copies share one store; the last of them
// releases it.
//
// A path stands in memory once, in the store's text: the tree's keys and the lists of children refer to it. A
// search makes the strings of its _XNode copies from there.

#pragma once

#include "SMBIOSProtocol/XNode.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace Protocol::SMBIOS {

struct TreeNode {
    std::string_view Path;
    std::string_view Value;          ///< of a leaf
    std::vector<TreeNode*> Children; ///< in order of insertion, a repeated one as often as it was listed
    std::uint32_t FirstByPath = 0;   ///< where the store has the children in order of their paths
    bool IsLeaf = false;
    bool ListsRepeats = false; ///< whether Children may hold a node twice

    /// Calls `visit` with each child once, in order of first insertion.
    template <typename Visit>
    void ForEachDistinctChild(Visit visit) const
    {
        std::unordered_set<const TreeNode*> visited;
        for (const TreeNode* child : Children) {
            if (!ListsRepeats || visited.insert(child).second)
                visit(*child);
        }
    }
};

class NodeStore {
public:
    NodeStore() = default;
    ~NodeStore();
    NodeStore(const NodeStore&) = delete;
    NodeStore& operator=(const NodeStore&) = delete;

    /// A new inner node without children. It stays where it is for the store's life.
    TreeNode& NewNode(std::string_view path);

    /// A copy of the three texts, joined, that lives as long as the store.
    std::string_view Keep(std::string_view first, std::string_view second = {}, std::string_view third = {});

    /// Takes back the newest Keep, whose result was `text`.
    void Forget(std::string_view text);

    /// Puts the children of each node in order of their paths too, once the tree is complete.
    void OrderChildren();

    /// The children of `node` by rising path, as many as Children, a repeated one next to itself.
    TreeNode* const* ChildrenByPath(const TreeNode& node) const { return ByPath.data() + node.FirstByPath; }

    /// Counts one write to the tree. Throws TreeTooLarge at the first beyond the limit.
    void CountWrite();

    /// Takes over a block from malloc, for `free`.
    void OwnRawBlock(unsigned char* block);

private:
    void AddBlock(std::size_t size);

    std::deque<TreeNode> Nodes;
    std::vector<TreeNode*> ByPath;
    std::vector<std::unique_ptr<char[]>> TextBlocks;
    std::size_t BlockSize = 4096; ///< of the next block; grows with the text
    char* TextEnd = nullptr;      ///< where the next text goes
    std::size_t TextLeft = 0;     ///< bytes from there to the end of its block
    unsigned int Writes = 0;
    unsigned char* RawBlock = nullptr;
};

} // namespace Protocol::SMBIOS
