#include "Report.h"
#include "Text.h"

#include <unordered_map>

namespace SmbiosTree {

namespace {

class Comparison {
public:
    explicit Comparison(const Style& style) : Colours(style) {}

    void Compare(const Node& before, const Node& after)
    {
        if (before.IsLeaf != after.IsLeaf) {
            ListAll("- ", Role::Removed, before);
            ListAll("+ ", Role::Added, after);
        } else if (before.IsLeaf) {
            CompareValues(before, after);
        } else {
            CompareChildren(before, after);
        }
    }

    // All leaves below `node`. An inner node without children has a line too: it is all that there is.
    void ListAll(const char* mark, Role role, const Node& node)
    {
        if (node.Children.empty())
            List(mark, role, node);
        for (const Node& child : node.Children)
            ListAll(mark, role, child);
    }

    std::string Lines;

private:
    void List(const char* mark, Role role, const Node& node)
    {
        std::string line = mark + Visible(node.Path);
        if (node.IsLeaf)
            line += " = " + Visible(node.Value);
        Lines += Colours.Paint(role, line) + "\n";
    }

    void CompareValues(const Node& before, const Node& after)
    {
        if (before.Value == after.Value)
            return;
        List("< ", Role::Changed, before);
        List("> ", Role::Changed, after);
    }

    void CompareChildren(const Node& before, const Node& after)
    {
        std::unordered_map<std::string_view, const Node*> added;
        for (const Node& child : after.Children)
            added.emplace(child.Key, &child);
        for (const Node& child : before.Children) {
            const auto other = added.find(child.Key);
            if (other == added.end()) {
                ListAll("- ", Role::Removed, child);
                continue;
            }
            Compare(child, *other->second);
            added.erase(other);
        }
        for (const Node& child : after.Children) {
            if (added.count(child.Key) != 0)
                ListAll("+ ", Role::Added, child);
        }
    }

    const Style& Colours;
};

} // namespace

std::string Differences(const std::optional<Tree>& before, const std::optional<Tree>& after,
                        const Style& style)
{
    Comparison comparison(style);
    if (before && after)
        comparison.Compare(before->Top(), after->Top());
    else if (before)
        comparison.ListAll("- ", Role::Removed, before->Top());
    else if (after)
        comparison.ListAll("+ ", Role::Added, after->Top());
    return std::move(comparison.Lines);
}

} // namespace SmbiosTree
