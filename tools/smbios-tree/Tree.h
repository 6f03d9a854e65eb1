// The tree of an input, in the order in which a person reads it.

#pragma once

#include "EntryPoint.h"

#include <SMBIOSProtocol/ISMBIOSProtocol.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace SmbiosTree {

/// The path of the whole tree.
constexpr const char* RootPath = "/SMBIOS";

/// One node with all below it.
struct Node {
    std::string Path;
    std::string
        Name; ///< the path behind the parent's; the last part of it for a list's member and for the top
    std::string Key; ///< the path behind the parent's, as it is: "/Size", "[2]"; empty for the top
    bool IsLeaf = false;
    std::string Value;          ///< of a leaf
    std::vector<Node> Children; ///< each path once, in the order of the parent's list
};

/// Decodes the input of this name, or the running machine where there is no name. Throws Failure.
std::shared_ptr<Protocol::SMBIOS::ISMBIOSProtocol> Open(const std::optional<std::string>& input,
                                                        std::optional<Version> readAs);

/// The node at `path` with all below it; nothing where there is none.
std::optional<Node> FindSubtree(Protocol::SMBIOS::ISMBIOSProtocol& protocol, const std::string& path);

/// The same, but throws Failure where there is none.
Node Subtree(Protocol::SMBIOS::ISMBIOSProtocol& protocol, const std::string& path);

} // namespace SmbiosTree
