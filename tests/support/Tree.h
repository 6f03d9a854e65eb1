// An object built from an image, and short ways to ask it.

#pragma once

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "support/Image.h"

#include <map>
#include <string>
#include <vector>

using SearchResult = std::map<std::string, _XNode>;

class Tree {
public:
    /// Decodes the image. The bytes are gone when this returns: the object may not look back at them.
    explicit Tree(TestImages::Bytes image, const std::string& rootPath = "/SMBIOS")
        : Object(image.data(), static_cast<unsigned short>(image.size()), rootPath)
    {
        image.assign(image.size(), 0xEE);
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

    Protocol::SMBIOS::SMBIOSProtocolImpl Object;
};
