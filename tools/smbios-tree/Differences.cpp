#include "Report.h"
#include "Text.h"

#include <unordered_map>

namespace SmbiosTree {

namespace {

class Comparison {
public:
    Comparison(Output& out, const Style& style) : Out(out), Colours(style) {}

    void Compare(NodeView before, NodeView after)
    {
        if (before.IsLeaf() != after.IsLeaf()) {
            ListAll("- ", Role::Removed, before);
            ListAll("+ ", Role::Added, after);
        } else if (before.IsLeaf()) {
            CompareValues(before, after);
        } else {
            CompareChildren(before, after);
        }
    }

    // All leaves below `node`. An inner node without children has a line too: it is all that there is.
    void ListAll(const char* mark, Role role, NodeView node)
    {
        if (node.IsLeaf() || node.Children().empty())
            return List(mark, role, node);
        for (const NodeView child : node.DistinctChildren())
            ListAll(mark, role, child);
    }

private:
    void List(const char* mark, Role role, NodeView node)
    {
        Out.Append(Colours.Begin(role));
        Out.Append(mark);
        Out.Append(node.Path());
        if (node.IsLeaf()) {
            Out.Append(" = ");
            WriteVisible(Out, node.Value());
        }
        Out.Append(Colours.End());
        Out.Append('\n');
    }

    void CompareValues(NodeView before, NodeView after)
    {
        if (before.Value() == after.Value())
            return;
        List("< ", Role::Changed, before);
        List("> ", Role::Changed, after);
    }

    void CompareChildren(NodeView before, NodeView after)
    {
        std::unordered_map<std::string_view, NodeView> added;
        for (const NodeView child : after.DistinctChildren())
            added.emplace(KeyOf(child, after), child);
        for (const NodeView child : before.DistinctChildren()) {
            const auto other = added.find(KeyOf(child, before));
            if (other == added.end()) {
                ListAll("- ", Role::Removed, child);
                continue;
            }
            Compare(child, other->second);
            added.erase(other);
        }
        for (const NodeView child : after.DistinctChildren()) {
            if (added.count(KeyOf(child, after)) != 0)
                ListAll("+ ", Role::Added, child);
        }
    }

    Output& Out;
    const Style& Colours;
};

} // namespace

void Differences(Output& out, const std::vector<NodePair>& pairs, const Style& style)
{
    Comparison comparison(out, style);
    for (const auto& [before, after] : pairs) {
        if (before && after)
            comparison.Compare(before, after);
        else if (before)
            comparison.ListAll("- ", Role::Removed, before);
        else
            comparison.ListAll("+ ", Role::Added, after);
    }
}

} // namespace SmbiosTree
