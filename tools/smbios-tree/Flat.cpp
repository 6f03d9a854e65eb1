#include "Report.h"
#include "Text.h"

namespace SmbiosTree {

namespace {

void Write(std::string& out, const Node& node, const Style& style)
{
    if (node.IsLeaf)
        out += style.Paint(Role::Field, Visible(node.Path)) + " = " + Visible(node.Value) + "\n";
    for (const Node& child : node.Children)
        Write(out, child, style);
}

} // namespace

std::string Flat(const Node& top, const Style& style)
{
    std::string out;
    Write(out, top, style);
    return out;
}

} // namespace SmbiosTree
