#include "support/Tree.h"

#include "samples/TableText.h"

#include <algorithm>
#include <cstdio>
#include <set>
#include <sstream>

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

constexpr std::size_t Width = 118;

std::string NameOf(const std::string& path)
{
    return path.substr(path.find_last_of('/') + 1);
}

bool IsType(const std::string& name)
{
    return name.rfind("Type", 0) == 0 && name.find_first_of("0123456789") == 4;
}

class Writer {
public:
    Writer(SMBIOSProtocolImpl& object, std::string root, const Blanks& blanks)
        : Object(object), Root(std::move(root)), Blank(blanks), Nodes(Everything(object, Root))
    {
    }

    std::string Text(const std::vector<std::string>& names)
    {
        std::string text;
        for (const std::string& name : names)
            text += Wrapped("-> " + Shown(PathOf(name), name));
        return text;
    }

    /// Of each type and inventory the number of its leaves and a sum of all that they are.
    std::string Sums()
    {
        std::string text = "-> sums: ";
        for (const std::string& path : Nodes.at(Root).Items) {
            const std::string whole = Whole(path);
            unsigned int sum = 0x811C9DC5; // FNV-1a
            for (const char c : whole)
                sum = (sum ^ static_cast<unsigned char>(c)) * 0x01000193;
            char hex[12];
            std::snprintf(hex, sizeof hex, " %08X", sum);
            text += path.substr(Root.size() + 1) + " " +
                    std::to_string(std::count(whole.begin(), whole.end(), '\n')) + hex + ", ";
        }
        return Wrapped(text.substr(0, text.size() - 2));
    }

    /// What each leaf has, by its name.
    void AddTo(Blanks& blanks)
    {
        for (const auto& [path, node] : Nodes) {
            if (node.NodeType == NODE_LEAF || IsBits(node))
                blanks[NameOf(path)].insert(Value(path, node));
        }
    }

private:
    std::string PathOf(const std::string& name) const
    {
        return name == "all" ? Root : name.front() == '/' ? name : Root + "/" + name;
    }

    // All below some children, nothing left out.
    std::string Whole(const std::string& path)
    {
        std::string text;
        for (const std::string& child : Nodes.at(path).Items) {
            text += child.substr(path.size()) + "\n";
            const auto node = Nodes.find(child);
            if (node != Nodes.end() && child.size() > path.size())
                text += node->second.NodeType == NODE_LEAF ? Value(child, node->second) + "\n"
                                                           : "{" + Whole(child) + "}";
        }
        return text;
    }

    std::string Shown(const std::string& path, const std::string& name)
    {
        const auto node = Nodes.find(path);
        if (node == Nodes.end())
            return name + ", without a node";
        if (node->second.NodeType == NODE_LEAF || IsBits(node->second))
            return Leaf(path, name, node->second);
        Seen.clear();
        Seen.insert(path);
        const std::string children = Children(path, node->second, path == Root);
        return name +
               (children.empty() ? "" : ":" + std::string(children.front() == '\n' ? "" : " ") + children);
    }

    std::string Leaf(const std::string& path, const std::string& name, const _XNode& node)
    {
        std::string text = name + ":" + (Value(path, node).empty() ? "" : " ") + Value(path, node);
        if (node.NodeType == NODE_LEAF && node.Items.size() > 1)
            text += "; " + std::to_string(node.Items.size() - 1) + " listed";
        return text;
    }

    std::string Value(const std::string& path, const _XNode& node)
    {
        if (node.NodeType != NODE_LEAF)
            return Bits(path, node);
        const SearchResult raw = Everything(Object, path + "_Raw");
        const std::string number = raw.empty() ? "" : " (raw " + raw.begin()->second.Items.at(0) + ")";
        return Short(Visible(node.Items.at(0))) + number;
    }

    bool IsBlank(const std::string& path, const _XNode& node)
    {
        const auto blank = Blank.find(NameOf(path));
        return blank != Blank.end() &&
               node.Items.size() <= (node.NodeType == NODE_LEAF ? 1 : node.Items.size()) &&
               blank->second.count(Value(path, node)) != 0;
    }

    // The children that are not blank, each structure and each with an index in a line of its own.
    std::string Children(const std::string& path, const _XNode& node, bool isRoot)
    {
        std::string text;
        std::size_t blanks = 0;
        const auto add = [&](const std::string& child) {
            const bool isRecord = child.front() == '[' || IsType(child);
            text += text.empty() ? (isRecord ? "\n" : "") : isRecord ? ";\n" : "; ";
            text += child;
        };
        for (std::size_t i = 0; i < node.Items.size(); ++i) {
            const std::string key = node.Items[i].substr(path.size());
            const std::string name = key.front() == '/' ? key.substr(1) : key;
            const auto child = Nodes.find(node.Items[i]);
            if (child == Nodes.end() || !Seen.insert(node.Items[i]).second) {
                std::size_t count = 1;
                while (child != Nodes.end() && i + 1 < node.Items.size() &&
                       Seen.count(node.Items[i + 1]) != 0) {
                    ++count;
                    ++i;
                }
                add(child == Nodes.end() ? name + ", without a node" : std::to_string(count) + " again");
            } else if (child->second.NodeType == NODE_LEAF || IsBits(child->second)) {
                if (IsBlank(node.Items[i], child->second))
                    ++blanks;
                else
                    add(Leaf(node.Items[i], name, child->second));
            } else if (isRoot && IsType(name) && child->second.Items.empty()) {
                ++blanks;
            } else if (IsList(node.Items[i], child->second)) {
                for (const std::string& each : child->second.Items)
                    add(name + each.substr(node.Items[i].size()) + " {" +
                        Children(each, Nodes.at(each), false) + "}");
            } else {
                const std::string inner = Children(node.Items[i], child->second, false);
                if (inner.front() == '+' && name.front() != '[' && !(isRoot && IsType(name)))
                    blanks += std::stoul(inner.substr(1));
                else
                    add(name + (inner.empty() ? "" : " {" + inner + "}"));
            }
        }
        if (blanks != 0)
            add("+" + std::to_string(blanks));
        return text;
    }

    // Structures alone, each once.
    bool IsList(const std::string& path, const _XNode& node) const
    {
        std::set<std::string> seen;
        return !node.Items.empty() &&
               std::all_of(node.Items.begin(), node.Items.end(), [&](const std::string& child) {
                   return child[path.size()] == '[' && seen.insert(child).second && Nodes.count(child) != 0 &&
                          Nodes.at(child).NodeType != NODE_LEAF;
               });
    }

    bool IsBits(const _XNode& node) const
    {
        return node.NodeType != NODE_LEAF && !node.Items.empty() &&
               std::all_of(node.Items.begin(), node.Items.end(), [&](const auto& path) {
                   const auto found = Nodes.find(path);
                   const std::string& text =
                       found == Nodes.end() || found->second.Items.empty() ? path : found->second.Items[0];
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
    const std::string Root;
    const Blanks& Blank;
    const SearchResult Nodes;
    std::set<std::string> Seen;
};

// Of a structure of each type, all zeros, and of a table without structures.
Blanks MakeBlanks(bool isNewest)
{
    using Protocol::SMBIOS::Reading;
    using Protocol::SMBIOS::TableImage;
    std::string zeros;
    for (int type = 0; type < 134; ++type) {
        if (type < 50 || type > 127)
            zeros += std::to_string(type) + " " + std::to_string(type) + ": @0xFF\n";
    }
    Blanks blanks;
    for (const std::string& text : {zeros, std::string("end\nentry 2.7")}) {
        SMBIOSProtocolImpl object(TableImage::FromBytes(Images::ImageFromText(text)),
                                  isNewest ? Reading::Newest : Reading::ByVersion);
        Writer(object, "/SMBIOS", {}).AddTo(blanks);
        for (const char* counts : {"Handle", "TotalNoOfProcessor", "TotalNoOfArray"})
            blanks[counts] = {text == zeros ? "" : "0"};
    }
    return blanks;
}

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

const Blanks& BlanksOf(bool isNewest)
{
    static const Blanks byVersion = MakeBlanks(false), newest = MakeBlanks(true);
    return isNewest ? newest : byVersion;
}

std::string Wrapped(const std::string& text)
{
    std::string wrapped, line;
    for (std::size_t at = 0, next = 0; at < text.size(); at = next) {
        next = std::min(text.find_first_of(";,\n", at), text.size() - 1) + 1;
        std::string piece = text.substr(at, next - at);
        const bool isRecord = piece.back() == '\n';
        if (isRecord)
            piece.pop_back();
        if (line.size() + piece.size() > Width && !line.empty()) {
            wrapped += line + "\n";
            line = piece.front() == ' ' ? "   " : "    ";
        }
        line += piece;
        const std::size_t record = std::min(text.find('\n', next), text.size()) - next;
        if (isRecord && line.size() + 1 + record > Width) {
            wrapped += line + "\n";
            line = " ";
        }
        if (isRecord && line.back() != '{')
            line += ' ';
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return wrapped + line + "\n";
}

std::string TreeText(SMBIOSProtocolImpl& object, const std::string& root,
                     const std::vector<std::string>& paths, const Blanks& blanks)
{
    return paths[0] == "sums" ? Writer(object, root, blanks).Sums()
                              : Writer(object, root, blanks).Text(paths);
}

std::vector<std::string> ShownIn(const std::string& text, const std::string& usual)
{
    std::vector<std::string> paths;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("-> ", 0) != 0 || line.rfind("-> failure", 0) == 0 || line.rfind("-> std::", 0) == 0 ||
            line.rfind("-> calls: ", 0) == 0 || line.rfind("-> reserved ", 0) == 0 ||
            line.rfind("-> table ", 0) == 0 || line.find(" behind", 0) != std::string::npos)
            continue;
        const std::string shown = line.substr(3, line.find(", without a node") - 3);
        paths.push_back(shown.substr(0, shown.find(':')));
    }
    if (paths.empty())
        paths.emplace_back(usual);
    return paths;
}

std::string Outcome(const std::function<ObjectOwner()>& make, const std::vector<std::string>& paths,
                    const Blanks& blanks, const std::string& root)
{
    try {
        const ObjectOwner object = make();
        return paths[0] == "decoded" ? "-> decoded\n" : TreeText(*object, root, paths, blanks);
    } catch (const ResultStatus& failure) {
        const bool isPlain = failure.Source().empty() && failure.Command() == XCOMMAND_NONE &&
                             failure.what() == failure.Message();
        return "-> failure " + std::to_string(failure.Code()) + ": " + failure.Message() +
               (isPlain ? "\n" : " (from " + failure.Source() + ")\n");
    } catch (const std::bad_alloc& failure) {
        return "-> " + std::string(failure.what()) + "\n";
    }
}
