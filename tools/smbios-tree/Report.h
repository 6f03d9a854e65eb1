// The forms in which a tree is written.

#pragma once

#include "Failure.h"
#include "Tree.h"

#include <optional>
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

/// The tree as a JSON document of several lines; ASCII alone.
std::string Json(const Node& top);

/// An input and its tree, or its failure, as a JSON document of one line; ASCII alone. Without a name, the
/// input is the running machine.
std::string JsonLine(const std::optional<std::string>& input, const Node& top);
std::string JsonLine(const std::optional<std::string>& input, const Failure& failure);

/// A page for the browser, complete in itself: a summary of the machine from its whole tree `root`, and the
/// tree from `top` down. `name` says where it was read.
std::string Html(const Node& root, const Node& top, const std::string& name);

/// A line for each leaf that is not in both trees with the same value, marked "-" where it is in the first
/// alone, "+" in the second alone, "<" and ">" where the value changed. Either tree may be missing.
std::string Differences(const std::optional<Tree>& before, const std::optional<Tree>& after,
                        const Style& style);

} // namespace SmbiosTree
