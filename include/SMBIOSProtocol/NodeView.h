/// \file
/// A look at a node of the tree, without a copy.

#pragma once

#include "SMBIOSProtocol/Export.h"

#include <cstddef>
#include <iterator>
#include <string_view>

namespace Protocol::SMBIOS {

struct TreeNode;
class NodeRange;

/// One node of a tree, or none. A view is as small as a pointer. It and its texts are valid as long as the
/// object that it comes from, or any copy of that object. A view without a node has empty texts, is no leaf
/// and has no children, so a chain of operations needs no test in between.
class SMBIOSPROTOCOL_API NodeView {
public:
    /// No node.
    constexpr NodeView() noexcept = default;

    /// Whether there is a node.
    explicit operator bool() const noexcept { return Node != nullptr; }

    /// The full path: "/SMBIOS/Type17[2]/Size".
    std::string_view Path() const noexcept;

    /// The end of the path, behind the parent's path and "/": "Size", "[2]", "SMBIOS".
    std::string_view Name() const noexcept;

    /// Whether the node holds a value. An inner node has children instead.
    bool IsLeaf() const noexcept;

    /// The value of a leaf as text, which may be empty; empty for an inner node.
    std::string_view Value() const noexcept;

    /// The children in their order, some more than once: by version each structure of a type without an index
    /// lists the same nodes. To walk a tree, use DistinctChildren. Ignore a leaf's children: only tables with
    /// shared handles have them.
    NodeRange Children() const noexcept;

    /// The children in their order, each once.
    NodeRange DistinctChildren() const noexcept;

    /// The child with this name: `Find("/SMBIOS/Type17[1]").Child("Size")`. A view without a node where there
    /// is none.
    NodeView Child(std::string_view name) const noexcept;

    /// Whether both look at the same node of the same tree, or at none.
    friend bool operator==(NodeView left, NodeView right) noexcept { return left.Node == right.Node; }
    /// The opposite.
    friend bool operator!=(NodeView left, NodeView right) noexcept { return left.Node != right.Node; }

private:
    friend class NodeRange;
    friend class SMBIOSProtocolImpl;
    explicit constexpr NodeView(const TreeNode* node) noexcept : Node(node) {}

    const TreeNode* Node = nullptr;
};

/// A row of nodes, for a range-based for loop; valid as long as the object that its view comes
/// from, or a copy of that object.
class NodeRange {
public:
    /// Goes over the row, from first to last.
    class Iterator {
    public:
        using iterator_category = std::input_iterator_tag; ///< for algorithms
        using value_type = NodeView;                       ///< for algorithms
        using difference_type = std::ptrdiff_t;            ///< for algorithms
        using pointer = void;                              ///< for algorithms
        using reference = NodeView;                        ///< for algorithms

        /// Compares with others like it alone.
        Iterator() noexcept = default;
        /// The node here.
        NodeView operator*() const noexcept { return NodeView(*Place); }
        /// Goes to the next node.
        Iterator& operator++() noexcept
        {
            ++Place;
            return *this;
        }
        /// The same, giving the place before.
        Iterator operator++(int) noexcept { return Iterator(Place++); }
        /// Whether both are at the same place.
        friend bool operator==(Iterator left, Iterator right) noexcept { return left.Place == right.Place; }
        /// The opposite.
        friend bool operator!=(Iterator left, Iterator right) noexcept { return left.Place != right.Place; }

    private:
        friend class NodeRange;
        explicit Iterator(const TreeNode* const* place) noexcept : Place(place) {}

        const TreeNode* const* Place = nullptr;
    };

    Iterator begin() const noexcept { return Iterator(First); }       ///< the first node
    Iterator end() const noexcept { return Iterator(First + Count); } ///< behind the last one
    std::size_t size() const noexcept { return Count; }               ///< how many there are
    bool empty() const noexcept { return Count == 0; }                ///< whether there is none
    NodeView operator[](std::size_t n) const noexcept { return NodeView(First[n]); } ///< `n` below size()

private:
    friend class NodeView;
    NodeRange() noexcept = default;
    NodeRange(const TreeNode* const* first, std::size_t count) noexcept : First(first), Count(count) {}

    const TreeNode* const* First = nullptr;
    std::size_t Count = 0;
};

} // namespace Protocol::SMBIOS
