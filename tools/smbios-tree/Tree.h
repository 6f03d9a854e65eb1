// The tree of an input.

#pragma once

#include "Input.h"

#include <SMBIOSProtocol/SMBIOSProtocolImpl.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace SmbiosTree {

using Protocol::SMBIOS::NodeView;

/// The path of the whole tree.
constexpr const char* RootPath = "/SMBIOS";

struct Version {
    int Major = 0;
    int Minor = 0;

    std::string Text() const { return std::to_string(Major) + "." + std::to_string(Minor); }
};

/// How the person wants a table to be read: with the newest catalogue, or by version.
struct Manner {
    bool ByVersion = false;
    std::optional<Version> ReadAs; ///< by version, this one in the place of the table's own
};

/// A table and its tree.
struct Tree {
    std::optional<TableImage> Table; ///< none: the table that the running machine publishes cannot be read
    std::shared_ptr<const Protocol::SMBIOS::SMBIOSProtocolImpl> Nodes;
    SmbiosTree::Manner Manner;

    NodeView Find(std::string_view path) const { return Nodes->Find(path); }

    /// Of the table; none where it has none.
    std::optional<Version> OwnVersion() const;
};

/// Reads and decodes an input into `tree`. Throws Failure; the table is in `tree` as soon as it is read.
void Open(const Input& input, const Manner& manner, Tree& tree);

/// What the person wants to see of it: a subtree, or types.
struct Choice {
    std::string Path = RootPath;
    std::vector<unsigned int> Types; ///< instead of a path
};

/// What is shown of a tree.
struct Selection {
    std::vector<NodeView> Tops;
    bool IsList = false; ///< whether it is a list by nature, even if of one
};

/// The nodes that are chosen. Throws Failure where one is not there.
Selection Select(const Tree& tree, const Choice& choice);

/// The nodes at one path in two trees.
struct NodePair {
    NodeView Before;
    NodeView After;
};

/// The same of two trees. What one side alone has is a difference, not a failure.
std::vector<NodePair> SelectBoth(const Tree& before, const Tree& after, const Choice& choice);

/// What a tree was read from and how, for a person: "version 2.6, by version"; empty where the table is not
/// known.
std::string VersionText(const Tree& tree);

/// What is wrong with the table, for a person: where it is damaged, or that it may be cut off. Empty:
/// nothing.
std::string DamageOf(const TableImage& table);

/// Whether `node` is one of several of a kind: its path ends in "[2]".
inline bool IsInstance(NodeView node)
{
    return node.Name().front() == '[';
}

/// What a reader calls it: "Size", "Type17[2]".
std::string_view NameOf(NodeView node);

/// The path of `child` behind its parent's: "/Size", "[2]".
inline std::string_view KeyOf(NodeView child, NodeView parent)
{
    return child.Path().substr(parent.Path().size());
}

} // namespace SmbiosTree
