// An input as JSON, an object of:
//
//   input                       its name; null: the running machine
//   smbios                      the version of its table, such as "3.4"; null where it has none
//   reading                     "newest", "by-version", or "as 2.7" with --read-as
//   whole                       whether the table is; where it is not:
//   damaged_at                  the offset in the table at which it is damaged, or
//   cut_off                     true: it has no end structure, and there may be more of it
//   tree or error               the tree, or an object of "code" and "message"
//
// smbios and what follows it stand there as soon as the table was read. Of the tree:
//
//   leaf                        its text as a string; where that is not UTF-8, an object of "text", in which
//                               U+FFFD stands for each byte that belongs to no character, and "bytes", all
//                               bytes in hexadecimal
//   inner node                  an object of its children by name
//   node that lists instances   an array, "[1]" first; null where an index is left out
//   node that does both         an object of its named children, the array under "Instances"
//
// No node of the tree is named "text", "bytes" or "Instances".

#include "Report.h"
#include "Text.h"

#include <rapidjson/prettywriter.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace SmbiosTree {

namespace {

constexpr std::string_view ReplacementCharacter = "\xEF\xBF\xBD";

// Where the writers put their characters.
class Target {
public:
    using Ch = char;

    explicit Target(Output& out) : Out(out) {}
    void Put(char character) { Out.Append(character); }
    void Flush() {}

private:
    Output& Out;
};

// `text` with each byte that belongs to no character replaced.
std::string Repaired(std::string_view text)
{
    std::string out;
    while (!text.empty()) {
        const std::size_t length = FirstCharacter(text).Length;
        out.append(length == 0 ? ReplacementCharacter : text.substr(0, length));
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return out;
}

void AppendUnit(std::string& out, char32_t unit)
{
    static constexpr char Digits[] = "0123456789abcdef";
    out += "\\u";
    for (const int shift : {12, 8, 4, 0})
        out += Digits[unit >> shift & 0xF];
}

void AppendCharacter(std::string& out, char32_t character)
{
    constexpr std::string_view ShortEscapes = "\"\"\\\\\bb\ff\nn\rr\tt"; // each with its letter
    for (std::size_t i = 0; i < ShortEscapes.size(); i += 2) {
        if (character == static_cast<unsigned char>(ShortEscapes[i])) {
            out.append("\\").append(1, ShortEscapes[i + 1]);
            return;
        }
    }
    if (' ' <= character && character <= '~') {
        out += static_cast<char>(character);
    } else if (character < 0x10000) {
        AppendUnit(out, character);
    } else {
        AppendUnit(out, 0xD800 + ((character - 0x10000) >> 10));
        AppendUnit(out, 0xDC00 + ((character - 0x10000) & 0x3FF));
    }
}

// A JSON string, of ASCII alone.
std::string Quoted(std::string_view text)
{
    std::string out = "\"";
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        AppendCharacter(out, character.Code);
        text.remove_prefix(character.Length);
    }
    out += '"';
    return out;
}

bool IsUtf8(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t length = FirstCharacter(text).Length;
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}

struct Instance {
    std::size_t Index;
    NodeView Node;
};

Instance InstanceAt(NodeView node)
{
    return {std::strtoul(std::string(node.Name().substr(1)).c_str(), nullptr, 10), node};
}

template <typename Writer>
class Document {
public:
    explicit Document(Output& out) : Stream(out), Json(Stream) {}

    Writer& Structure() { return Json; }

    // `text` is ASCII without controls.
    void WritePlain(std::string_view text)
    {
        Json.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    }

    void WriteText(std::string_view text)
    {
        if (IsPlain(text)) // as nearly all are
            return WritePlain(text);
        if (IsUtf8(text))
            return WriteQuoted(text);
        Json.StartObject();
        WritePlain("text");
        WriteQuoted(Repaired(text));
        WritePlain("bytes");
        WritePlain(Hexadecimal(text));
        Json.EndObject();
    }

    void WriteNode(NodeView node)
    {
        if (node.IsLeaf())
            return WriteText(node.Value());
        std::vector<Instance> instances;
        bool isObject = false;
        for (const NodeView child : node.DistinctChildren()) {
            if (IsInstance(child)) {
                instances.push_back(InstanceAt(child));
                continue;
            }
            if (!isObject)
                Json.StartObject();
            isObject = true;
            WriteText(child.Name());
            WriteNode(child);
        }
        if (!isObject && instances.empty())
            Json.StartObject();
        if (!isObject && !instances.empty())
            return WriteInstances(instances);
        if (!instances.empty()) {
            WritePlain("Instances");
            WriteInstances(instances);
        }
        Json.EndObject();
    }

    // A list of nodes is an object of them by name.
    void Write(const Selection& selection)
    {
        if (!selection.IsList)
            return WriteNode(selection.Tops.front());
        Json.StartObject();
        for (const NodeView top : selection.Tops) {
            WriteText(NameOf(top));
            WriteNode(top);
        }
        Json.EndObject();
    }

    void WriteInput(const Input& input, const Tree& tree)
    {
        WritePlain("input");
        if (input)
            WriteText(*input);
        else
            Json.Null();
        if (tree.Table)
            WriteTable(tree);
    }

private:
    void WriteTable(const Tree& tree)
    {
        const std::optional<Version> version = tree.OwnVersion();
        WritePlain("smbios");
        if (version)
            WritePlain(version->Text());
        else
            Json.Null();
        WritePlain("reading");
        WritePlain(tree.Manner.ReadAs      ? "as " + tree.Manner.ReadAs->Text()
                   : tree.Manner.ByVersion ? "by-version"
                                           : "newest");
        WritePlain("whole");
        Json.Bool(tree.Table->IsWhole());
        if (tree.Table->IsWhole())
            return;
        const Protocol::SMBIOS::TableExtent& extent = tree.Table->Extent();
        WritePlain(extent.IsDamaged() ? "damaged_at" : "cut_off");
        if (extent.IsDamaged())
            Json.Uint64(extent.Size);
        else
            Json.Bool(true);
    }

    void WriteQuoted(std::string_view text)
    {
        const std::string quoted = Quoted(text);
        Json.RawValue(quoted.data(), quoted.size(), rapidjson::kStringType);
    }

    // Each at its place, nulls between them.
    void WriteInstances(std::vector<Instance>& instances)
    {
        const auto isBefore = [](const Instance& left, const Instance& right) {
            return left.Index < right.Index;
        };
        std::sort(instances.begin(), instances.end(), isBefore);
        Json.StartArray();
        std::size_t next = 1;
        for (const Instance& instance : instances) {
            for (; next < instance.Index; ++next)
                Json.Null();
            WriteNode(instance.Node);
            ++next;
        }
        Json.EndArray();
    }

    Target Stream;
    Writer Json;
};

using Lines = Document<rapidjson::PrettyWriter<Target>>;
using OneLine = Document<rapidjson::Writer<Target>>;

template <typename Writer>
void WriteTree(Document<Writer>& document, const Input& input, const Tree& tree, const Selection& selection)
{
    document.Structure().StartObject();
    document.WriteInput(input, tree);
    document.WritePlain("tree");
    document.Write(selection);
    document.Structure().EndObject();
}

} // namespace

void Json(Output& out, const Input& input, const Tree& tree, const Selection& selection)
{
    Lines document(out);
    document.Structure().SetIndent(' ', 2);
    WriteTree(document, input, tree, selection);
    out.Append('\n');
}

void JsonLine(Output& out, const Input& input, const Tree& tree, const Selection& selection)
{
    OneLine document(out);
    WriteTree(document, input, tree, selection);
    out.Append('\n');
}

void JsonLine(Output& out, const Input& input, const Tree& tree, const Failure& failure)
{
    OneLine document(out);
    document.Structure().StartObject();
    document.WriteInput(input, tree);
    document.WritePlain("error");
    document.Structure().StartObject();
    document.WritePlain("code");
    document.WritePlain(failure.Code);
    document.WritePlain("message");
    document.WriteText(failure.what());
    document.Structure().EndObject();
    document.Structure().EndObject();
    out.Append('\n');
}

} // namespace SmbiosTree
