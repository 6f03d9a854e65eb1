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

/// Auto: the one of the table's version, and the newest where the version has none.
enum class Catalogue { Auto, ByVersion, Newest };

/// How the person wants a table to be read.
struct Manner {
    SmbiosTree::Catalogue Catalogue = Catalogue::Auto;
    std::optional<Version> ReadAs; ///< takes the place of the table's own version, by version
};

/// A decoded table.
struct Tree {
    std::shared_ptr<const Protocol::SMBIOS::SMBIOSProtocolImpl> Nodes;
    std::optional<SmbiosTree::Version> Version; ///< that it was read as; the running machine's is not known
    Protocol::SMBIOS::Reading Reading = Protocol::SMBIOS::Reading::ByVersion;
    bool IsWhole = true; ///< false: its table may be cut off

    NodeView Find(std::string_view path) const { return Nodes->Find(path); }
};

/// Decodes an input. Throws Failure.
Tree Open(const Input& input, const Manner& manner);
Tree Open(const TableImage& table, const Manner& manner);

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

/// What a tree was read as, for a person: "version 3.4, with the newest catalogue"; empty where that is not
/// known.
std::string VersionText(const Tree& tree);

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
