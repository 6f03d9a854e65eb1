#include "Report.h"
#include "Text.h"

namespace SmbiosTree {

namespace {

void Write(Output& out, NodeView node, const Style& style)
{
    if (!node.IsLeaf()) {
        for (const NodeView child : node.DistinctChildren())
            Write(out, child, style);
        return;
    }
    out.Append(style.Begin(Role::Field));
    out.Append(node.Path());
    out.Append(style.End());
    out.Append(" = ");
    WriteVisible(out, node.Value());
    out.Append('\n');
}

} // namespace

void Flat(Output& out, const Selection& selection, const Style& style)
{
    for (const NodeView top : selection.Tops)
        Write(out, top, style);
}

void Value(Output& out, const Selection& selection)
{
    const NodeView node = selection.Tops.front();
    if (!node.IsLeaf())
        throw Failure(Kind::NotAValue, "\"" + Visible(node.Path()) +
                                           "\" is no value, but has others below it; see them with --flat");
    out.Append(node.Value());
    out.Append('\n');
}

} // namespace SmbiosTree
