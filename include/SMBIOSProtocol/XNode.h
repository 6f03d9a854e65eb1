/// \file
/// The node: what a search gives for each path.

#pragma once

#include <map>
#include <string>
#include <vector>

/// What a node is.
enum _NODE_TYPE {
    NODE_LEAF = 0,  ///< holds one value
    NODE_INNER = 1, ///< holds the paths of its children
};

/// A copy of one node of the tree, owned by whoever holds it and without a link back to the tree.
struct _XNode {
    _NODE_TYPE NodeType = NODE_LEAF; ///< says how Items reads
    /// Leaf: its value as text in the first entry, which may be empty.
    /// Inner node: the full paths of its children, in the order in which they were added.
    std::vector<std::string> Items;
    std::map<std::string, std::string> Attributes; ///< always empty
    unsigned char Flag = 0;                        ///< without a meaning, always 0
};
