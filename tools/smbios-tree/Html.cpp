// One page that needs nothing else: a summary of the machine, and its tree, which folds without the script
// too. Firmware text stands between tags and in attributes, never in the script.

#include "Report.h"
#include "Summary.h"
#include "Text.h"
#include "page/Page.h"

#include <algorithm>
#include <iterator>

namespace SmbiosTree {

namespace {

// More slots than this are drawn small.
constexpr std::size_t ManySlots = 32;

struct Title {
    std::string_view Key;
    std::string_view Text;
};

constexpr Title Titles[] = {
    {"/Type0", "BIOS Information"},
    {"/Type1", "System Information"},
    {"/Type2", "Baseboard Information"},
    {"/Type3", "System Enclosure or Chassis"},
    {"/Type4", "Processor Information"},
    {"/Type7", "Cache Information"},
    {"/Type8", "Port Connector Information"},
    {"/Type9", "System Slots"},
    {"/Type10", "On Board Devices Information"},
    {"/Type11", "OEM Strings"},
    {"/Type13", "BIOS Language Information"},
    {"/Type16", "Physical Memory Array"},
    {"/Type17", "Memory Device"},
    {"/Type18", "32-bit Memory Error Information"},
    {"/Type19", "Memory Array Mapped Address"},
    {"/Type24", "Hardware Security"},
    {"/Type32", "System Boot Information"},
    {"/Type38", "IPMI Device Information"},
    {"/Type132", "Platform Memory Description"},
    {"/Type133", "Platform Reserved Memory"},
    {"/ProcessorInfo", "processors by socket"},
    {"/MemoryArray", "memory arrays with their devices"},
};

std::string_view TitleOf(const Node& node)
{
    const std::string_view root = RootPath;
    if (node.Path.substr(0, root.size()) != root)
        return {};
    const auto* const title = std::find_if(std::begin(Titles), std::end(Titles), [&](const Title& candidate) {
        return node.Path.substr(root.size()) == candidate.Key;
    });
    return title == std::end(Titles) ? std::string_view() : title->Text;
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

std::string Element(const char* tag, std::string_view text)
{
    return std::string("<") + tag + ">" + Escaped(text) + "</" + tag + ">";
}

void WriteLeaf(std::string& out, const Node& leaf)
{
    out += "<p data-k=\"" + Escaped(leaf.Key) + "\">" + Element("b", leaf.Name) +
           Element("span", leaf.Value) + "</p>\n";
}

// What stands beside an inner node's name: its title, and how many instances it lists.
std::string Remark(const Node& node)
{
    std::string remark(TitleOf(node));
    const auto instances = std::count_if(node.Children.begin(), node.Children.end(),
                                         [](const Node& child) { return child.Key.front() == '['; });
    if (instances != 0)
        remark += (remark.empty() ? "" : ", ") + std::to_string(instances);
    if (node.Children.empty())
        remark += remark.empty() ? "none" : ", none";
    return remark;
}

void WriteNode(std::string& out, const Node& node, bool isOpen)
{
    if (node.IsLeaf) {
        WriteLeaf(out, node);
        return;
    }
    out += node.Children.empty() ? "<details class=\"none\"" : "<details";
    out +=
        " data-k=\"" + Escaped(node.Key) + "\"" + (isOpen ? " open" : "") + "><summary>" + Escaped(node.Name);
    const std::string remark = Remark(node);
    if (!remark.empty())
        out += Element("i", remark);
    out += "</summary>\n";
    for (const Node& child : node.Children)
        WriteNode(out, child, false);
    out += "</details>\n";
}

void WriteSlots(std::string& out, const SlotGroup& group, const char* kind)
{
    out +=
        std::string("<ul class=\"slots ") + kind + (group.Slots.size() > ManySlots ? " many" : "") + "\">\n";
    for (const Slot& slot : group.Slots) {
        out += slot.IsFilled ? "<li class=\"filled\">" : "<li class=\"empty\">";
        out += Element("b", slot.Headline);
        for (const std::string& line : slot.Lines)
            out += Element("span", line);
        out += "</li>\n";
    }
    out += "</ul>\n";
}

void WriteHeading(std::string& out, const char* name, const std::string& remark)
{
    out += std::string("<h2>") + name + Element("small", remark) + "</h2>\n";
}

void WriteSummary(std::string& out, const Summary& summary)
{
    out += "<header>\n" + Element("h1", summary.Title) + "\n";
    if (!summary.Subtitle.empty())
        out += Element("p", summary.Subtitle) + "\n";
    out += "<dl class=\"facts\">\n";
    for (const Fact& fact : summary.Facts)
        out += "<div>" + Element("dt", fact.Label) + Element("dd", fact.Text) + "</div>\n";
    out += "</dl>\n</header>\n<section id=\"processors\">\n";
    WriteHeading(out, "Processors", summary.Processors.Title);
    WriteSlots(out, summary.Processors, "sockets");
    out += "</section>\n<section id=\"memory\">\n";
    WriteHeading(out, "Memory", summary.Memory.Title);
    for (const SlotGroup& array : summary.MemoryArrays) {
        if (summary.MemoryArrays.size() > 1)
            out += Element("h3", array.Title) + "\n";
        WriteSlots(out, array, "modules");
    }
    out += "</section>\n";
}

void WriteTree(std::string& out, const Node& top)
{
    out += "<section id=\"tree\">\n"
           "<div class=\"bar\" hidden><input type=\"search\" placeholder=\"Search names and values\" "
           "aria-label=\"Search names and values\"><output></output>"
           "<button type=\"button\">Unfold all</button><button type=\"button\">Fold all</button>"
           "<code></code></div>\n"
           "<div class=\"tree\">\n";
    WriteNode(out, top, true);
    out += "</div>\n</section>\n";
}

} // namespace

std::string Html(const Node& root, const Node& top, const std::string& name)
{
    const Summary summary = Summarise(root);
    std::string out =
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "
        "style-src 'unsafe-inline'; script-src 'unsafe-inline'; base-uri 'none'; form-action 'none'\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n";
    out += Element("title", summary.Title + ": SMBIOS") + "\n<style>\n";
    out.append(Page::StyleSheet).append("</style>\n</head>\n<body>\n");
    WriteSummary(out, summary);
    WriteTree(out, top);
    out += "<footer>" + Escaped("Read from " + name + " by smbios-tree " SMBIOS_TREE_VERSION) +
           "</footer>\n<script>\n";
    out.append(Page::Script).append("</script>\n</body>\n</html>\n");
    return out;
}

} // namespace SmbiosTree
