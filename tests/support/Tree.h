// Short ways to ask an object.

#pragma once

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "support/Image.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

using Protocol::SMBIOS::SMBIOSProtocolImpl;
using SearchResult = std::map<std::string, _XNode>;

/// Decodes the image. The bytes are gone when this returns: the object may not look back at them.
inline std::unique_ptr<SMBIOSProtocolImpl> Decoded(TestImages::Bytes image,
                                                   const std::string& rootPath = "/SMBIOS")
{
    image.shrink_to_fit(); // a read beyond the image leaves its heap block
    return std::make_unique<SMBIOSProtocolImpl>(image.data(), static_cast<unsigned short>(image.size()),
                                                rootPath);
}

/// All of an object's tree as text, a line a node.
inline std::string TextOf(SMBIOSProtocolImpl& object)
{
    SearchResult nodes;
    object.SMBiosSearch("/SMBIOS", nodes);
    std::string text;
    for (const auto& [path, node] : nodes) {
        text += path + (node.NodeType == NODE_LEAF ? " =" : " :");
        for (const std::string& item : node.Items)
            text += " " + item;
        text += "\n";
    }
    return text;
}

/// A copy of an object.
class Tree {
public:
    explicit Tree(SMBIOSProtocolImpl& source) : Object(source) {}
    explicit Tree(const TestImages::Bytes& image, const std::string& rootPath = "/SMBIOS")
        : Tree(*Decoded(image, rootPath))
    {
    }

    SearchResult Search(const std::string& path)
    {
        SearchResult result;
        Object.SMBiosSearch(path, result);
        return result;
    }

    bool Has(const std::string& path) { return Search(path).count(path) != 0; }

    /// The text of the leaf at `path`; "(no node)" or "(inner)" where there is no leaf.
    std::string Leaf(const std::string& path)
    {
        const SearchResult result = Search(path);
        const auto node = result.find(path);
        if (node == result.end())
            return "(no node)";
        return node->second.NodeType == NODE_LEAF ? node->second.Items.at(0) : "(inner)";
    }

    /// The children of the node at `path`, without their common prefix `path`.
    std::vector<std::string> Children(const std::string& path)
    {
        std::vector<std::string> names;
        const SearchResult result = Search(path);
        for (const std::string& child : result.at(path).Items)
            names.push_back(child.rfind(path, 0) == 0 ? child.substr(path.size()) : child);
        return names;
    }

    /// The leaves below the node at `path` in the order of Items, as "name = text" with the name behind
    /// `path`. An inner node without children is "name (inner)".
    std::vector<std::string> Leaves(const std::string& path)
    {
        std::vector<std::string> lines;
        AddLeaves(Search(path), path, path.size(), lines);
        return lines;
    }

    SMBIOSProtocolImpl Object;

private:
    static void AddLeaves(const SearchResult& nodes, const std::string& path, std::size_t prefix,
                          std::vector<std::string>& lines)
    {
        const _XNode& node = nodes.at(path);
        if (node.NodeType == NODE_LEAF)
            lines.push_back(path.substr(prefix) + " = " + node.Items.at(0));
        else if (node.Items.empty())
            lines.push_back(path.substr(prefix) + " (inner)");
        else
            for (const std::string& child : node.Items)
                AddLeaves(nodes, child, prefix, lines);
    }
};
