#include "support/Tree.h"

#include <algorithm>
#include <cstdio>
#include <set>

namespace {

std::string Visible(const std::string& text)
{
    std::string visible;
    for (const char c : text) {
        char hex[8];
        std::snprintf(hex, sizeof hex, "\\x%02X", static_cast<unsigned char>(c));
        visible += c == '\n' ? "\\n" : c == '\t' ? "\\t" : c < ' ' || c > '~' ? hex : std::string(1, c);
    }
    return visible;
}

// A long text of which a short piece makes all, as "100 x piece".
std::string Short(const std::string& text)
{
    constexpr std::size_t LongText = 100;
    for (std::size_t size = 1; size <= 5 && text.size() > LongText; ++size) {
        if (text.size() % size == 0 &&
            text.compare(size, std::string::npos, text, 0, text.size() - size) == 0)
            return std::to_string(text.size() / size) + " x \"" + text.substr(0, size) + "\"";
    }
    return text;
}

class Writer {
public:
    Writer(SMBIOSProtocolImpl& object, const std::string& path)
        : Object(object), Nodes(Everything(object, path))
    {
        IsEmpty =
            std::none_of(Nodes.begin(), Nodes.end(), [](const auto& node) { return IsStructure(node); });
        Write(path, path, 0);
    }

    std::string Text;

private:
    void Line(std::size_t depth, const std::string& text)
    {
        std::string line = std::string(2 * depth, ' ') + text;
        line.erase(line.find_last_not_of(' ') + 1);
        Text += line + "\n";
    }

    void Write(const std::string& path, const std::string& name, std::size_t depth)
    {
        const auto entry = Nodes.find(path);
        if (entry == Nodes.end() || !Seen.insert(path).second) {
            Line(depth, name + (entry == Nodes.end() ? ", without a node" : ", again"));
            return;
        }
        const _XNode& node = entry->second;
        if (node.NodeType == NODE_LEAF)
            WriteLeaf(path, name, node, depth);
        else if (IsBits(node))
            Line(depth, name + ": " + Bits(path, node));
        else
            WriteInner(path, name, node, depth);
    }

    void WriteLeaf(const std::string& path, const std::string& name, const _XNode& leaf, std::size_t depth)
    {
        const SearchResult raw = Everything(Object, path + "_Raw");
        const std::string number = raw.empty() ? "" : " (raw " + raw.begin()->second.Items.at(0) + ")";
        const std::string value = Short(Visible(leaf.Items.at(0)));
        Line(depth, name + ":" + (value.empty() ? "" : " ") + value + number);
        for (std::size_t i = 1; i < leaf.Items.size(); ++i)
            Line(depth + 1, leaf.Items[i].substr(path.size() + 1) + ", listed");
    }

    void WriteInner(const std::string& path, const std::string& name, const _XNode& node, std::size_t depth)
    {
        const bool isType = path.rfind("/Type") == path.find_last_of('/');
        if (depth == 1 && isType && node.Items.empty() && !IsEmpty)
            return;
        Line(depth, name);
        for (const std::string& child : node.Items) {
            const std::string key = child.substr(path.size());
            Write(child, key.front() == '/' ? key.substr(1) : key, depth + 1);
        }
    }

    static bool IsStructure(const SearchResult::value_type& node)
    {
        return node.first.find("/Type") != std::string::npos && !node.second.Items.empty();
    }

    bool IsBits(const _XNode& node) const
    {
        return !node.Items.empty() &&
               std::all_of(node.Items.begin(), node.Items.end(), [&](const auto& path) {
                   const std::string& text = Nodes.at(path).Items.empty() ? path : Nodes.at(path).Items[0];
                   return text == "Supported" || text == "Not Supported";
               });
    }

    std::string Bits(const std::string& path, const _XNode& node) const
    {
        std::string set;
        for (const std::string& child : node.Items) {
            if (Nodes.at(child).Items[0] == "Supported")
                set += (set.empty() ? ": " : ", ") + child.substr(path.size() + 1);
        }
        return std::to_string(node.Items.size()) + " bits" + set;
    }

    SMBIOSProtocolImpl& Object;
    const SearchResult Nodes;
    std::set<std::string> Seen;
    bool IsEmpty = false; ///< no type has a structure
};

} // namespace

ObjectOwner Decoded(Images::Bytes image, const std::string& rootPath)
{
    image.shrink_to_fit(); // a read beyond the image leaves its heap block
    return std::make_unique<SMBIOSProtocolImpl>(image.data(), static_cast<unsigned short>(image.size()),
                                                rootPath);
}

SearchResult Everything(SMBIOSProtocolImpl& object, const std::string& path)
{
    SearchResult nodes;
    object.SMBiosSearch(path, nodes);
    return nodes;
}

bool AreEqual(const SearchResult& left, const SearchResult& right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](const auto& a, const auto& b) {
        return a.first == b.first && a.second.NodeType == b.second.NodeType &&
               a.second.Items == b.second.Items;
    });
}

std::string TreeText(SMBIOSProtocolImpl& object, const std::string& path)
{
    return Writer(object, path).Text;
}

std::string Outcome(const std::function<ObjectOwner()>& make, const std::vector<std::string>& paths)
{
    try {
        const ObjectOwner object = make();
        std::string text = paths.empty() ? "decoded\n" : "";
        for (const std::string& path : paths)
            text += TreeText(*object, path);
        return text;
    } catch (const ResultStatus& failure) {
        const bool isPlain = failure.Source().empty() && failure.Command() == XCOMMAND_NONE &&
                             failure.what() == failure.Message();
        return "failure " + std::to_string(failure.Code()) + ": " + failure.Message() +
               (isPlain ? "\n" : " (from " + failure.Source() + ")\n");
    } catch (const std::bad_alloc& failure) {
        return std::string(failure.what()) + "\n";
    }
}
