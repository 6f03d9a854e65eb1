#include "Report.h"
#include "Text.h"

namespace SmbiosTree {

namespace {

void Write(Output& out, NodeView node, std::size_t depth, const Style& style, std::string_view remark)
{
    out.AppendBlanks(2 * depth);
    out.Append(style.Begin(node.IsLeaf() ? Role::Field : Role::Structure));
    out.Append(NameOf(node)); // a name is of the library, and visible as it is
    if (node.IsLeaf())
        out.Append(':');
    out.Append(style.End());
    if (!node.Value().empty()) {
        out.Append(' ');
        WriteVisible(out, node.Value());
    }
    if (!remark.empty() && !node.IsLeaf()) {
        out.Append(" (");
        out.Append(remark);
        out.Append(')');
    }
    out.Append('\n');
    if (node.IsLeaf())
        return;
    for (const NodeView child : node.DistinctChildren())
        Write(out, child, depth + 1, style, {});
}

} // namespace

void Indented(Output& out, const Selection& selection, const Style& style, const std::string& remark)
{
    for (const NodeView top : selection.Tops)
        Write(out, top, 0, style, top.Path() == RootPath ? remark : std::string_view());
}

} // namespace SmbiosTree
