#include "Report.h"
#include "Text.h"

namespace SmbiosTree {

namespace {

void Write(std::string& out, const Node& node, std::size_t depth, const Style& style)
{
    out.append(2 * depth, ' ');
    if (node.IsLeaf) {
        out += style.Paint(Role::Field, Visible(node.Name) + ":");
        if (!node.Value.empty())
            out.append(" ").append(Visible(node.Value));
    } else {
        out += style.Paint(Role::Structure, Visible(node.Name));
    }
    out += '\n';
    for (const Node& child : node.Children)
        Write(out, child, depth + 1, style);
}

} // namespace

std::string Indented(const Node& top, const Style& style)
{
    std::string out;
    Write(out, top, 0, style);
    return out;
}

} // namespace SmbiosTree
