// The tree of an input, in the order in which a person reads it.

#pragma once

#include "EntryPoint.h"

#include <SMBIOSProtocol/ISMBIOSProtocol.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace SmbiosTree {

/// The path of the whole tree.
constexpr const char* RootPath = "/SMBIOS";

/// One node with all below it. Its texts belong to the Tree that it stands in.
struct Node {
    std::string_view Path;
    std::string_view Key;  ///< the path behind the parent's: "/Size", "[2]"; of the top, the whole path
    std::string_view Name; ///< for a reader: "Size", "Type17[2]"
    bool IsLeaf = false;
    std::string_view Value;     ///< of a leaf
    std::vector<Node> Children; ///< each path once, in the order of the parent's list
};

/// A node of an input's tree, with all below it.
class Tree {
public:
    /// Takes what a search for the path `top` found. The name of that node begins at `nameStart` of its path.
    Tree(std::map<std::string, _XNode> found, const std::string& top, std::size_t nameStart);
    Tree(Tree&&) = default;
    Tree& operator=(Tree&&) = default;

    const Node& Top() const { return TopNode; }

private:
    void Fill(Node& node, _XNode& source);

    std::map<std::string, _XNode> Nodes;
    Node TopNode;
};

/// Decodes the input of this name, or the running machine where there is no name. Throws Failure.
std::shared_ptr<Protocol::SMBIOS::ISMBIOSProtocol> Open(const std::optional<std::string>& input,
                                                        std::optional<Version> readAs);

/// The subtree at `path`; nothing where there is none.
std::optional<Tree> FindSubtree(Protocol::SMBIOS::ISMBIOSProtocol& protocol, const std::string& path);

/// The same, but throws Failure where there is none.
Tree Subtree(Protocol::SMBIOS::ISMBIOSProtocol& protocol, const std::string& path);

} // namespace SmbiosTree
