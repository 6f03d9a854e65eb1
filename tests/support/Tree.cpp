#include "support/Tree.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

using Protocol::SMBIOS::NodeView;

namespace {

std::string Formatted(const char* format, unsigned int number)
{
    char text[16];
    std::snprintf(text, sizeof text, format, number);
    return text;
}

std::string Visible(std::string_view text)
{
    std::string visible;
    for (const char c : text)
        visible += c == '\n'            ? "\\n"
                   : c == '\t'          ? "\\t"
                   : c < ' ' || c > '~' ? Formatted("\\x%02X", static_cast<unsigned char>(c))
                                        : std::string(1, c);
    if (!visible.empty() && visible.back() == ' ') // which would not be seen
        visible.replace(visible.size() - 1, 1, "\\x20");
    return visible;
}

// How often the piece of this size at a place stands there.
std::size_t Times(const std::string& text, std::size_t at, std::size_t size)
{
    std::size_t times = 1;
    while (text.compare(at + times * size, size, text, at, size) == 0)
        ++times;
    return times;
}

// A text with its long repeats as 100 x "piece".
std::string Short(const std::string& text) // NOLINT(misc-no-recursion)
{
    constexpr std::size_t LongRepeat = 40, LongPiece = 5;
    std::string before, after;
    for (std::size_t at = 0; at < text.size(); before += text[at++]) {
        for (std::size_t size = 1; size <= LongPiece && at + size <= text.size(); ++size) {
            const std::size_t times = Times(text, at, size);
            if (times * size < LongRepeat)
                continue;
            after = Short(text.substr(at + times * size));
            return (before.empty() ? "" : before + " + ") + std::to_string(times) + " x \"" +
                   text.substr(at, size) + "\"" + (after.empty() ? "" : " + " + after);
        }
    }
    return text;
}

// The names of children that are bits, those that are set; false where one is none.
bool TakeBits(NodeView node, std::string& set)
{
    for (const NodeView bit : node.Children()) {
        if (bit.Value() != "Supported" && bit.Value() != "Not Supported")
            return false;
        if (bit.Value() == "Supported")
            set += (set.empty() ? ": " : ", ") + std::string(bit.Name());
    }
    return !node.Children().empty();
}

std::string Names(NodeView node)
{
    constexpr std::size_t Most = 8;
    const auto children = node.DistinctChildren();
    const std::size_t count = children.size(), again = node.Children().size() - count;
    std::string names;
    for (std::size_t i = 0; i < count; ++i) {
        if (count > Most && i == 1)
            names += ", " + std::to_string(count - 2) + " more";
        if (count <= Most || i == 0 || i + 1 == count)
            names += (i == 0 ? "" : ", ") + std::string(children[i].Name());
    }
    return "{" + names + "}" + (again == 0 ? "" : " and " + std::to_string(again) + " again");
}

std::string Text(NodeView node)
{
    std::string set;
    if (!node)
        return "none";
    if (node.IsLeaf()) {
        const std::size_t listed = node.Children().size();
        return (node.Value().empty() ? "\"\"" : Short(Visible(node.Value()))) +
               (listed == 0 ? "" : " and " + std::to_string(listed) + " listed");
    }
    return TakeBits(node, set) ? std::to_string(node.Children().size()) + " bits" + set : Names(node);
}

// A line for each leaf below the children, and a list of those of a node that has none or some again.
std::string Lines(NodeView node, const std::string& root) // NOLINT(misc-no-recursion)
{
    const std::string path(node.Path().substr(root.size()));
    const auto children = node.DistinctChildren();
    if (node.IsLeaf())
        return path + " = " + Text(node) + "\n";
    const bool isPlain = !children.empty() && children.size() == node.Children().size();
    std::string lines = isPlain ? "" : path + " = " + Names(node) + "\n";
    for (const NodeView child : children)
        lines += Lines(child, root);
    return lines;
}

std::string Sums(NodeView top, const std::string& root)
{
    std::string sums;
    for (const NodeView child : top.Children()) {
        const std::string lines = Lines(child, root);
        std::uint32_t sum = 0x811C9DC5; // FNV-1a
        for (const char c : lines)
            sum = (sum ^ static_cast<unsigned char>(c)) * 0x01000193;
        if (!child.Children().empty())
            sums += "; " + std::string(child.Name()) + " " +
                    std::to_string(std::count(lines.begin(), lines.end(), '\n')) + Formatted(" %08X", sum);
    }
    return sums.substr(std::min<std::size_t>(sums.size(), 2));
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

std::string Answer(SMBIOSProtocolImpl& object, const std::string& root, const std::string& question)
{
    const std::size_t end = std::min(question.find(": "), question.find(" = ")), size = question.size();
    const std::string name = question.substr(0, end);
    const std::string path = name[0] == '/' ? name : root + "/" + name;
    if (name == "sums")
        return "sums: " + Sums(object.Find(root), root);
    if (name == "tree")
        return Lines(object.Find(root), root);
    if (end == std::string::npos || question[end] == ' ')
        return name + " = " + Text(object.Find(path));
    std::string answer = name + ":";
    for (std::size_t at = end + 2, next = 0; at < size; at = next + 2) {
        next = std::min(question.find("; ", at), size);
        const std::string child = question.substr(at, std::min(question.find(" = ", at), next) - at);
        answer += " " + child + " = " + Text(object.Find(path + (child[0] == '[' ? "" : "/") + child)) +
                  (next < size ? ";" : "");
    }
    return answer;
}
