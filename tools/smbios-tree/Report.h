// The forms in which a tree is written.

#pragma once

#include "Tree.h"

#include <string>
#include <string_view>

namespace SmbiosTree {

/// The roles of text on a terminal that shows colours.
enum class Role { Structure, Field, Removed, Added, Changed };

struct Style {
    bool HasColours = false;

    /// `text` in the colour of its role, where there are colours.
    std::string Paint(Role role, std::string_view text) const;
};

/// A line for each node, two blanks deeper than its parent: "Name" of an inner node, "Name: value" of a leaf.
std::string Indented(const Node& top, const Style& style);

/// A line "path = value" for each leaf.
std::string Flat(const Node& top, const Style& style);

} // namespace SmbiosTree
