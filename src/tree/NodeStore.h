// The nodes of a tree, their index and the memory behind them. An object and its copies share one store; the
// last of them releases it.
//
// A path stands in memory once, in the store's text: the nodes refer to it. A search makes the strings of its
// _XNode copies from there.

#pragma once

#include "SMBIOSProtocol/XNode.h"
#include "tree/StableList.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace Protocol::SMBIOS {

/// The first and the last listing of a node's children, by number.
struct ListingChain {
    std::uint32_t First;
    std::uint32_t Last;
};

struct TreeNode;

/// Some nodes, one behind the other.
struct NodeRow {
    const TreeNode* const* First = nullptr;
    std::size_t Count = 0;

    const TreeNode* const* begin() const { return First; }
    const TreeNode* const* end() const { return First + Count; }
};

/// A node. While the tree grows, its children are a chain in the store; in a complete tree they are rows.
struct TreeNode {
    std::string_view Path;
    std::string_view Value; ///< of a leaf
    union {
        ListingChain Chain;
        /// The children as listed, then by path, and where ListsRepeats holds, each once with a null behind
        /// the last.
        const TreeNode* const* Rows;
    };
    std::uint32_t ParentSize; ///< length of the path of the parent; 0: the root
    std::uint32_t ChildCount : 30;
    bool IsLeaf : 1;
    bool ListsRepeats : 1; ///< whether a child may be listed twice; in a complete tree, whether one is

    // Of a complete tree.
    NodeRow Listed() const { return {Rows, ChildCount}; } ///< in the order of listing, repeats included
    NodeRow ByPath() const { return {Rows + ChildCount, ChildCount}; } ///< by rising path, repeats included
    NodeRow Distinct() const; ///< in the order of listing, each node where it was listed first
};

/// A child in the list of its parent.
struct Listing {
    std::uint32_t Child; ///< number of the node
    std::uint32_t Next;  ///< number of the next listing of the same parent, if there is one
};

/// The children along a chain of listings.
class ListingRange {
public:
    class Iterator {
    public:
        Iterator(const StableList<TreeNode>& nodes, const StableList<Listing>& listings, std::uint32_t number,
                 std::uint32_t left)
            : Nodes(&nodes), Listings(&listings), Number(number), Left(left)
        {
        }
        TreeNode* operator*() const { return &(*Nodes)[(*Listings)[Number].Child]; }
        Iterator& operator++()
        {
            Number = (*Listings)[Number].Next;
            --Left;
            return *this;
        }
        bool operator!=(const Iterator& other) const { return Left != other.Left; }

    private:
        const StableList<TreeNode>* Nodes;
        const StableList<Listing>* Listings;
        std::uint32_t Number;
        std::uint32_t Left; ///< listings from here to the end
    };

    ListingRange(Iterator first, Iterator end) : First(first), End(end) {}
    Iterator begin() const { return First; }
    Iterator end() const { return End; }

private:
    Iterator First;
    Iterator End;
};

class NodeStore {
public:
    NodeStore() = default;
    ~NodeStore();
    NodeStore(const NodeStore&) = delete;
    NodeStore& operator=(const NodeStore&) = delete;

    /// The node at `path`, null where there is none.
    TreeNode* Find(std::string_view path) const;

    /// The child of `parent` at "/" and `name`, while the tree grows; null where none is listed.
    const TreeNode* FindChild(const TreeNode& parent, std::string_view name) const;

    /// The node at `path`; where there is none, a new inner node without children.
    TreeNode& At(std::string_view path) { return Nodes[FindOrAdd(path, {}, {})]; }

    /// Lists a child of `parent` at `separator` and `name` behind the others. A new one is an inner node
    /// without children.
    TreeNode& ListChild(TreeNode& parent, std::string_view separator, std::string_view name);

    /// The same at an index: "[2]".
    TreeNode& ListInstance(TreeNode& parent, std::size_t index);

    /// The same, stored as an inner node.
    TreeNode& AddInstance(TreeNode& parent, std::size_t index);

    /// Stores a new node in the place of `node`, whose value and children go. `lasting` is a leaf's value and
    /// must live as long as the tree.
    void Overwrite(TreeNode& node, _NODE_TYPE type, std::string_view lasting = {});

    /// Makes room in the index for so many nodes in all, ahead of them.
    void Reserve(std::size_t nodeCount);

    /// The children of `node`, each as often as it is listed, in that order, for a range-based for loop. For
    /// a tree that grows; meanwhile other nodes may get more children.
    ListingRange Children(const TreeNode& node) const
    {
        return {{Nodes, Listings, node.Chain.First, node.ChildCount}, {Nodes, Listings, 0, 0}};
    }

    /// A copy of `text` that lives as long as the store.
    std::string_view Keep(std::string_view text) { return Join(text, {}, {}); }

    /// Puts the children of each node into a row, once the tree is complete. Nothing is added to it
    /// afterwards.
    void OrderChildren();

    /// Counts what a long text takes beside its own write, one for each further 254 characters: where strings
    /// are kept whole, few fields that name one long string could else exhaust memory.
    void CountText(std::string_view text);

    /// Takes over a block from malloc, for `free`.
    void OwnRawBlock(unsigned char* block);

private:
    /// A place of the index: the number of a node, counted from 1, or 0, and the hash of its path.
    struct Slot {
        std::uint32_t Hash;
        std::uint32_t Number;
    };

    std::uint32_t FindOrAdd(std::string_view first, std::string_view second, std::string_view third);
    void CountWrite();
    std::string_view Join(std::string_view first, std::string_view second, std::string_view third);
    void AddBlock(std::size_t size);
    std::size_t SlotOf(std::string_view path, std::uint32_t hash) const;
    void GrowIndex(std::size_t size);

    StableList<TreeNode> Nodes;
    std::vector<Slot> Slots;      ///< by hash; a node that finds its slot taken goes to the next free one
    StableList<Listing> Listings; ///< while the tree grows
    std::unique_ptr<const TreeNode*[]> ChildRows; ///< when it is complete
    std::vector<std::unique_ptr<char[]>> TextBlocks;
    std::size_t TextSize = 0; ///< bytes in all blocks
    char* TextEnd = nullptr;  ///< where the next text goes
    std::size_t TextLeft = 0; ///< bytes from there to the end of its block
    unsigned int Writes = 0;
    unsigned char* RawBlock = nullptr;
};

} // namespace Protocol::SMBIOS
