// A tree as JSON:
//
//   leaf                        its text as a string; where that is not UTF-8, an object of "text", in which
//                               U+FFFD stands for each byte that belongs to no character, and "bytes", all
//                               bytes in hexadecimal
//   inner node                  an object of its children by name
//   node that lists instances   an array, "[1]" first; null where an index is left out
//   node that does both         an object of its named children, the array under "Instances"
//
// No node of the tree has one of these three names.

#include "Report.h"
#include "Text.h"

#include <nlohmann/json.hpp>

#include <cstdlib>

namespace SmbiosTree {

namespace {

using Document = nlohmann::ordered_json;

constexpr const char* Instances = "Instances";
constexpr const char* ReplacementCharacter = "\xEF\xBF\xBD";

// `text` with each byte that belongs to no character replaced. Gives whether there was one.
bool Repair(std::string_view text, std::string& out)
{
    bool isRepaired = false;
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        isRepaired |= length == 0;
        out.append(length == 0 ? ReplacementCharacter : text.substr(0, length));
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return isRepaired;
}

Document FromText(std::string_view text)
{
    std::string repaired;
    if (!Repair(text, repaired))
        return repaired;
    return {{"text", repaired}, {"bytes", Hexadecimal(text)}};
}

Document FromName(const std::optional<std::string>& input)
{
    return input ? FromText(*input) : Document(nullptr);
}

Document FromNode(const Node& node);

// Puts an instance at its place, behind as many nulls as it takes.
void PutInstance(Document& list, const Node& node)
{
    const std::size_t index = std::strtoul(std::string(node.Key.substr(1)).c_str(), nullptr, 10);
    while (list.size() < index)
        list.push_back(nullptr);
    list[index - 1] = FromNode(node);
}

Document FromNode(const Node& node)
{
    if (node.IsLeaf)
        return FromText(node.Value);
    Document named = Document::object();
    Document list = Document::array();
    for (const Node& child : node.Children) {
        if (child.Key.front() == '[')
            PutInstance(list, child);
        else
            named[std::string(child.Name)] = FromNode(child);
    }
    if (list.empty())
        return named;
    if (named.empty())
        return list;
    named[Instances] = std::move(list);
    return named;
}

constexpr int OneLine = -1;
constexpr int Indentation = 2;

std::string Text(const Document& document, int indentation)
{
    constexpr bool onlyAscii = true;
    return document.dump(indentation, ' ', onlyAscii) + "\n";
}

} // namespace

std::string Json(const Node& top)
{
    return Text(FromNode(top), Indentation);
}

std::string JsonLine(const std::optional<std::string>& input, const Node& top)
{
    return Text({{"input", FromName(input)}, {"tree", FromNode(top)}}, OneLine);
}

std::string JsonLine(const std::optional<std::string>& input, const Failure& failure)
{
    const Document error{{"code", failure.Code}, {"message", FromText(failure.what())}};
    return Text({{"input", FromName(input)}, {"error", error}}, OneLine);
}

} // namespace SmbiosTree
