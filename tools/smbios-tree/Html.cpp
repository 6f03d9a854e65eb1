// One page that needs nothing else: a summary of the machine, and its tree, which folds without the script
// too. Firmware text stands between tags and in attributes, never in the script.

#include "Report.h"
#include "Summary.h"
#include "Text.h"
#include "Types.h"
#include "page/Page.h"

#include <algorithm>
#include <iterator>

namespace SmbiosTree {

namespace {

using Protocol::SMBIOS::NodeRange;

// More slots than this are drawn small.
constexpr std::size_t ManySlots = 32;

constexpr std::string_view TypeKey = "/Type";

// What a node below the root is, for those that do not say it themselves.
std::string_view TitleOf(NodeView node)
{
    const std::string_view root = RootPath;
    if (node.Path().substr(0, root.size()) != root)
        return {};
    const std::string key(node.Path().substr(root.size()));
    if (key == "/ProcessorInfo")
        return "processors by socket";
    if (key == "/MemoryArray")
        return "memory arrays with their devices";
    if (key.compare(0, TypeKey.size(), TypeKey) != 0)
        return {};
    const std::optional<unsigned int> type = TypeOf(key.substr(TypeKey.size()));
    return type ? TitleOfType(*type) : std::string_view();
}

std::string Escaped(std::string_view text)
{
    std::string out;
    for (const char character : Visible(text)) {
        switch (character) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        case '\'':
            out += "&#39;";
            break;
        default:
            out += character;
        }
    }
    return out;
}

void WriteEscaped(Output& out, std::string_view text)
{
    if (IsPlain(text) && text.find_first_of("&<>\"'") == std::string_view::npos) // as nearly all are
        out.Append(text);
    else
        out.Append(Escaped(text));
}

void WriteElement(Output& out, std::string_view tag, std::string_view text)
{
    out.Append('<');
    out.Append(tag);
    out.Append('>');
    WriteEscaped(out, text);
    out.Append("</");
    out.Append(tag);
    out.Append('>');
}

void WriteLeaf(Output& out, NodeView leaf, std::string_view key, std::string_view name)
{
    out.Append("<p data-k=\"");
    WriteEscaped(out, key);
    out.Append("\">");
    WriteElement(out, "b", name);
    WriteElement(out, "span", leaf.Value());
    out.Append("</p>\n");
}

// What stands beside an inner node's name: its title, and how many instances it lists.
std::string Remark(NodeView node)
{
    std::string remark(TitleOf(node));
    const NodeRange children = node.DistinctChildren();
    const auto instances = std::count_if(children.begin(), children.end(), IsInstance);
    if (instances != 0)
        remark += (remark.empty() ? "" : ", ") + std::to_string(instances);
    if (children.empty())
        remark += remark.empty() ? "none" : ", none";
    return remark;
}

void WriteNode(Output& out, NodeView node, std::string_view key, bool isTop)
{
    if (node.IsLeaf())
        return WriteLeaf(out, node, key, NameOf(node));
    const NodeRange children = node.DistinctChildren();
    out.Append(children.empty() ? "<details class=\"none\" data-k=\"" : "<details data-k=\"");
    WriteEscaped(out, key);
    out.Append(isTop ? "\" open><summary>" : "\"><summary>");
    WriteEscaped(out, NameOf(node));
    const std::string remark = Remark(node);
    if (!remark.empty())
        WriteElement(out, "i", remark);
    out.Append("</summary>\n");
    for (const NodeView child : children)
        WriteNode(out, child, KeyOf(child, node), false);
    out.Append("</details>\n");
}

void WriteSlots(Output& out, const SlotGroup& group, std::string_view kind)
{
    out.Append("<ul class=\"slots ");
    out.Append(kind);
    out.Append(group.Slots.size() > ManySlots ? " many\">\n" : "\">\n");
    for (const Slot& slot : group.Slots) {
        out.Append(slot.IsFilled ? "<li class=\"filled\">" : "<li class=\"empty\">");
        WriteElement(out, "b", slot.Headline);
        for (const std::string& line : slot.Lines)
            WriteElement(out, "span", line);
        out.Append("</li>\n");
    }
    out.Append("</ul>\n");
}

void WriteHeading(Output& out, std::string_view name, const std::string& remark)
{
    out.Append("<h2>");
    out.Append(name);
    WriteElement(out, "small", remark);
    out.Append("</h2>\n");
}

void WriteSummary(Output& out, const Summary& summary)
{
    out.Append("<header>\n");
    WriteElement(out, "h1", summary.Title);
    out.Append('\n');
    if (!summary.Subtitle.empty()) {
        WriteElement(out, "p", summary.Subtitle);
        out.Append('\n');
    }
    out.Append("<dl class=\"facts\">\n");
    for (const Fact& fact : summary.Facts) {
        out.Append("<div>");
        WriteElement(out, "dt", fact.Label);
        WriteElement(out, "dd", fact.Text);
        out.Append("</div>\n");
    }
    out.Append("</dl>\n</header>\n<section id=\"processors\">\n");
    WriteHeading(out, "Processors", summary.Processors.Title);
    WriteSlots(out, summary.Processors, "sockets");
    out.Append("</section>\n<section id=\"memory\">\n");
    WriteHeading(out, "Memory", summary.Memory.Title);
    for (const SlotGroup& array : summary.MemoryArrays) {
        if (summary.MemoryArrays.size() > 1) {
            WriteElement(out, "h3", array.Title);
            out.Append('\n');
        }
        WriteSlots(out, array, "modules");
    }
    out.Append("</section>\n");
}

void WriteTree(Output& out, const Selection& selection)
{
    out.Append("<section id=\"tree\">\n"
               "<div class=\"bar\" hidden><input type=\"search\" placeholder=\"Search names and values\" "
               "aria-label=\"Search names and values\"><output></output>"
               "<button type=\"button\">Unfold all</button><button type=\"button\">Fold all</button>"
               "<code></code></div>\n"
               "<div class=\"tree\">\n");
    for (const NodeView top : selection.Tops)
        WriteNode(out, top, top.Path(), true);
    out.Append("</div>\n</section>\n");
}

} // namespace

void Html(Output& out, const Tree& tree, const Selection& selection, const std::string& name,
          const std::string& version)
{
    Summary summary = Summarise(tree);
    if (!version.empty())
        summary.Facts.push_back({"SMBIOS", version});
    const std::string damage = tree.Table ? DamageOf(*tree.Table) : "";
    if (!damage.empty())
        summary.Facts.push_back({"Damage", damage});
    out.Append(
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
        "style-src 'unsafe-inline'; script-src 'unsafe-inline'; base-uri 'none'; form-action 'none'\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n");
    WriteElement(out, "title", summary.Title + ": SMBIOS");
    out.Append("\n<style>\n");
    out.Append(Page::StyleSheet);
    out.Append("</style>\n</head>\n<body>\n");
    WriteSummary(out, summary);
    WriteTree(out, selection);
    WriteElement(out, "footer", "Read from " + name + " by smbios-tree " SMBIOS_TREE_VERSION);
    out.Append("\n<script>\n");
    out.Append(Page::Script);
    out.Append("</script>\n</body>\n</html>\n");
}

} // namespace SmbiosTree
