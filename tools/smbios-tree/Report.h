// The forms in which a tree is written.

#pragma once

#include "Failure.h"
#include "Output.h"
#include "Tree.h"

#include <string>
#include <string_view>
#include <vector>

namespace SmbiosTree {

/// The roles of text on a terminal that shows colours.
enum class Role { Structure, Field, Removed, Added, Changed };

struct Style {
    bool HasColours = false;

    /// What stands around text of a role; empty where there are no colours.
    std::string_view Begin(Role role) const;
    std::string_view End() const;
};

/// A line for each node, two blanks deeper than its parent: "Name" of an inner node, "Name: value" of a leaf.
/// `remark` stands behind the name of the root.
void Indented(Output& out, const Selection& selection, const Style& style, const std::string& remark);

/// A line "path = value" for each leaf.
void Flat(Output& out, const Selection& selection, const Style& style);

/// The bytes of one leaf's value as they are, and a line feed. Throws Failure where it is no leaf.
void Value(Output& out, const Selection& selection);

/// An input and its tree as a JSON document of several lines; ASCII alone. Without a name, the input is the
/// running machine.
void Json(Output& out, const Input& input, const Tree& tree, const Selection& selection);

/// The same, or its failure, as a document of one line. `tree` has the table if it could be read.
void JsonLine(Output& out, const Input& input, const Tree& tree, const Selection& selection);
void JsonLine(Output& out, const Input& input, const Tree& tree, const Failure& failure);

/// A page for the browser, complete in itself: a summary of the machine from its whole tree, and what is
/// selected of the tree. `name` says where it was read, `version` what it was read as.
void Html(Output& out, const Tree& tree, const Selection& selection, const std::string& name,
          const std::string& version);

/// A line for each leaf that is not in both trees with the same value, marked "-" where it is in the first
/// alone, "+" in the second alone, "<" and ">" where the value changed.
void Differences(Output& out, const std::vector<NodePair>& pairs, const Style& style);

} // namespace SmbiosTree
