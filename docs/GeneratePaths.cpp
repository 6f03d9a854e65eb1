// Prints docs/paths.md: every path that a caller can ask for, and every text that can stand there.
//
// Fields and texts come from the built catalogues of all revisions. What a packed field turns into is found
// by decoding images that hold it; the words about it stand in PathsWords.h, and the program fails where
// they do not fit what the library does.

#include "PathsWords.h"
#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "catalogue/Catalogue.h"
#include "support/Image.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <sstream>
#include <stdexcept>

using namespace Protocol::SMBIOS;
using TestImages::Bytes;

namespace {

constexpr std::size_t RevisionCount = 5;
constexpr const char* RevisionNames[RevisionCount] = {"2.3", "2.4", "2.5", "2.6", "2.7"};
constexpr int StringReference = 17;
constexpr std::size_t HeaderSize = 4;

using Tables = std::unordered_map<unsigned char, SMBTable>;

const std::array<Tables, RevisionCount>& Catalogues()
{
    static const std::array<Tables, RevisionCount> all = {
        Catalogue::Build(Catalogue::V2_3), Catalogue::Build(Catalogue::V2_4),
        Catalogue::Build(Catalogue::V2_5), Catalogue::Build(Catalogue::V2_6),
        Catalogue::Build(Catalogue::V2_7),
    };
    return all;
}

/// One field of a type, where it lies, and its table in the newest revision.
struct FieldView {
    unsigned char Type;
    const SMBTable& Table;
    const SMBField& Field;
    std::size_t Offset;

    int Size() const { return Field.Width == StringReference ? 1 : Field.Width; }
    const ValueTable* Values() const
    {
        const auto values = Table.ValueTables.find(Field.Name);
        return values == Table.ValueTables.end() ? nullptr : &values->second;
    }
};

std::string Code(const std::string& text)
{
    std::string code = "`";
    for (const char c : text) {
        if (c == '\n')
            code += "\\n";
        else if (c == '\t')
            code += "\\t";
        else if (c == '|')
            code += "\\|";
        else
            code += c;
    }
    return text.empty() ? "empty" : code + "`";
}

std::string Hex(unsigned int value, int bytes)
{
    std::ostringstream text;
    text << std::hex << std::uppercase;
    text.fill('0');
    text.width(std::streamsize{2} * bytes);
    text << value;
    return text.str() + "h";
}

/// "all", "from 2.5", "to 2.6", "2.5 only".
std::string Range(std::size_t first, std::size_t last)
{
    if (first == 0 && last == RevisionCount - 1)
        return "all";
    if (first == last && last != RevisionCount - 1)
        return std::string(RevisionNames[first]) + " only";
    if (last == RevisionCount - 1)
        return std::string("from ") + RevisionNames[first];
    if (first == 0)
        return std::string("to ") + RevisionNames[last];
    return std::string(RevisionNames[first]) + " to " + RevisionNames[last];
}

/// The first revision that has the field.
std::size_t FirstRevision(unsigned char type, std::string_view field)
{
    for (std::size_t i = 0; i < RevisionCount; ++i) {
        const auto table = Catalogues()[i].find(type);
        if (table == Catalogues()[i].end())
            continue;
        for (const SMBField& each : table->second.Fields) {
            if (each.Name == field)
                return i;
        }
    }
    throw std::logic_error("a field without a revision");
}

/// What stands at and below the field of a structure that is all 01h but for `bytes` there. `path` becomes
/// the field's path, with `suffix` behind it.
std::map<std::string, _XNode> Decoded(const FieldView& field, const Bytes& bytes, std::string& path,
                                      const char* suffix = "")
{
    constexpr std::size_t LongEnough = 64;
    constexpr unsigned short Handle = 0xABCD; // not 0101h, so that no link leads anywhere
    Bytes image = TestImages::Image({TestImages::Structure(field.Type, Handle)
                                         .Fill(field.Offset - HeaderSize, 1)
                                         .Raw(bytes)
                                         .Fill(LongEnough, 1)});
    SMBIOSProtocolImpl object(image.data(), static_cast<unsigned short>(image.size()), "");
    path = "/Type" + std::to_string(field.Type) + (field.Table.Indexed ? "[1]/" : "/");
    path.append(field.Field.Name).append(suffix);
    std::map<std::string, _XNode> nodes;
    object.SMBiosSearch(path, nodes);
    return nodes;
}

std::string DecodedLeaf(const FieldView& field, const Bytes& bytes, const std::string& child)
{
    std::string path;
    return Decoded(field, bytes, path).at(path + child).Items.at(0);
}

/// A text that stands at one key, or one bit, in a run of revisions.
struct TextRow {
    int Key;
    std::string Text, Revisions;
    bool operator==(const TextRow& other) const
    {
        return Key == other.Key && Text == other.Text && Revisions == other.Revisions;
    }
};

/// Bits count by their number, enumerations by their value.
std::vector<TextRow> TextRows(const FieldView& field, bool isBits)
{
    std::map<int, std::array<std::string, RevisionCount>> texts;
    for (std::size_t i = 0; i < RevisionCount; ++i) {
        const auto type = Catalogues()[i].find(field.Type);
        if (type == Catalogues()[i].end() || type->second.ValueTables.count(field.Field.Name) == 0)
            continue;
        const ValueTable& table = type->second.ValueTables.at(field.Field.Name);
        std::size_t bit = 0;
        for (const ValueTable::Row& row : table.Rows()) {
            if (isBits)
                bit = table.Header().find('1', row.Key == 1 ? 0 : bit + 1);
            texts[isBits ? static_cast<int>(bit) : row.Key - 1][i] = row.Text;
        }
    }

    const std::size_t from = FirstRevision(field.Type, field.Field.Name);
    std::vector<TextRow> rows;
    for (const auto& [key, byRevision] : texts) {
        for (std::size_t first = from; first < RevisionCount; ++first) {
            std::size_t last = first;
            while (last + 1 < RevisionCount && byRevision[last + 1] == byRevision[first])
                ++last;
            if (!byRevision[first].empty())
                rows.push_back({key, byRevision[first], Range(first, last)});
            first = last;
        }
    }
    return rows;
}

bool IsBits(const ValueTable& table)
{
    return table.Header().find_first_not_of("01") == std::string::npos;
}

bool IsEnumeration(const ValueTable& table)
{
    return table.Header() == "ENUM" || table.Header() == "ENUM_MASK";
}

std::string PlainWords(const FieldView& field)
{
    std::string path;
    const auto nodes = Decoded(field, Bytes(static_cast<std::size_t>(field.Size()), 1), path);
    if (nodes.at(path).NodeType == NODE_INNER)
        return "a handle, see [Links](#links)";
    switch (field.Field.Interpretation) {
    case FieldInterpretation::String:
        return "leaf: a string";
    case FieldInterpretation::Decimal:
        return "leaf: a number of " + std::to_string(field.Size()) +
               (field.Size() == 1 ? " byte" : " bytes") + (field.Size() == 8 ? ", signed" : "");
    case FieldInterpretation::Hex:
    case FieldInterpretation::HexBare:
        break;
    }
    return "leaf: " + std::to_string(field.Size()) + " bytes, such as " +
           Code(DecodedLeaf(field, Bytes(static_cast<std::size_t>(field.Size()), 0x1F), ""));
}

std::string LeafDecoderWords(const FieldView& field, const LeafDecoder& decoder)
{
    std::string words = std::string("leaf: ") + decoder.Words;
    for (const Bytes& example : decoder.Examples) {
        const bool isNumber = example.size() == 1;
        words += isNumber ? "; " + Hex(example[0], 1) + ": " : ", such as ";
        words += Code(DecodedLeaf(field, example, ""));
    }
    return words;
}

std::string Words(const FieldView& field)
{
    const ValueTable* const values = field.Values();
    if (values == nullptr)
        return PlainWords(field);
    const std::string& header = values->Header();
    if (header == "ENUM")
        return "leaf: a text below";
    if (header == "ENUM_MASK")
        return "leaf: a text below, by the low seven bits";
    if (IsBits(*values))
        return "inner: a leaf for each bit below";
    for (const LeafDecoder& decoder : LeafDecoders) {
        if (header == decoder.Header)
            return LeafDecoderWords(field, decoder);
    }
    return "inner: the leaves below";
}

void PrintTextTable(std::ostream& out, const FieldView& field)
{
    if (IsBits(*field.Values())) {
        out << "| Bit | Leaf: `Supported` or `Not Supported` | Revisions |\n|---|---|---|\n";
        for (const TextRow& row : TextRows(field, true))
            out << "| " << row.Key << " | " << Code("/" + row.Text) << " | " << row.Revisions << " |\n";
        return;
    }
    out << "| Raw | Text | Revisions |\n|---|---|---|\n";
    for (const TextRow& row : TextRows(field, false))
        out << "| " << Hex(static_cast<unsigned int>(row.Key), field.Size()) << " | " << Code(row.Text)
            << " | " << row.Revisions << " |\n";
}

/// The texts of a child by the value of its bits, found by decoding each.
std::string ChildTexts(const FieldView& field, const Child& child)
{
    if (child.BitCount > MostBitsToList)
        return "the number";
    std::string texts;
    for (unsigned int value = 0; value < 1U << child.BitCount; ++value) {
        const unsigned int raw = value << child.LowestBit;
        const Bytes bytes = {static_cast<unsigned char>(raw), static_cast<unsigned char>(raw >> 8)};
        const Bytes own(bytes.begin(), bytes.begin() + field.Size());
        texts += (value == 0 ? "" : ", ") + std::to_string(value) + " " +
                 Code(DecodedLeaf(field, own, child.Name));
    }
    return texts;
}

void PrintChildTable(std::ostream& out, const FieldView& field)
{
    std::string path;
    const auto nodes = Decoded(field, Bytes(static_cast<std::size_t>(field.Size())), path);
    std::vector<std::string> described;
    out << "| Leaf | Bits | Text by the bits' value |\n|---|---|---|\n";
    for (const Child& child : Children) {
        if (field.Values()->Header() != child.Header)
            continue;
        described.push_back(path + child.Name);
        const int highest = child.LowestBit + child.BitCount - 1;
        out << "| " << Code(child.Name) << " | " << (child.BitCount == 1 ? "" : std::to_string(highest) + ":")
            << child.LowestBit << " | " << ChildTexts(field, child) << " |\n";
    }
    if (nodes.at(path).Items != described)
        throw std::logic_error("children of " + path + " that this program does not know");
}

/// Fields whose tables would read the same share one.
bool ShareTable(const FieldView& left, const FieldView& right)
{
    const ValueTable& a = *left.Values();
    const ValueTable& b = *right.Values();
    if (a.Header() != b.Header() || left.Size() != right.Size())
        return false;
    return !(IsBits(a) || IsEnumeration(a)) || TextRows(left, IsBits(a)) == TextRows(right, IsBits(b));
}

void PrintField(std::ostream& out, const FieldView& field)
{
    const std::string name = "/" + std::string(field.Field.Name);
    const std::string place = " | " + Hex(static_cast<unsigned int>(field.Offset), 1) + " | " +
                              RevisionNames[FirstRevision(field.Type, field.Field.Name)] + " | ";
    out << "| " << Code(name) << place << Words(field) << " |\n";

    std::string path;
    if (Decoded(field, {1}, path, "_Raw").count(path) != 0)
        out << "| " << Code(name + "_Raw") << place
            << "leaf: the number itself; no node lists it, only its own path finds it |\n";
}

void PrintType(std::ostream& out, const TypeName& type)
{
    const SMBTable& table = Catalogues().back().at(type.Number);
    std::vector<FieldView> fields;
    std::size_t offset = HeaderSize;
    for (const SMBField& field : table.Fields) {
        fields.push_back({type.Number, table, field, offset});
        offset += static_cast<std::size_t>(fields.back().Size());
    }

    const std::size_t from = FirstRevision(type.Number, table.Fields.front().Name);
    out << "\n## Type " << static_cast<int>(type.Number) << ": " << type.Name << "\n\n`/SMBIOS/Type"
        << static_cast<int>(type.Number) << (table.Indexed ? "[n]" : "") << "`, from " << RevisionNames[from]
        << "\n\n| Path below | Offset | From | What stands there |\n|---|---|---|---|\n";
    for (const FieldView& field : fields)
        PrintField(out, field);

    std::set<std::string_view> printed;
    for (const FieldView& field : fields) {
        const bool hasTable = field.Values() != nullptr && Words(field).find("below") != std::string::npos;
        if (!hasTable || printed.count(field.Field.Name) != 0)
            continue;
        out << "\n### ";
        const char* separator = "";
        for (const FieldView& other : fields) {
            if (other.Values() == nullptr || !ShareTable(field, other))
                continue;
            printed.insert(other.Field.Name);
            out << separator << Code(std::string(other.Field.Name));
            separator = ", ";
        }
        out << "\n\n";
        if (IsBits(*field.Values()) || IsEnumeration(*field.Values()))
            PrintTextTable(out, field);
        else
            PrintChildTable(out, field);
    }
}

std::string PathReference()
{
    std::ostringstream out;
    out << Introduction;
    for (const TypeName& type : TypeNames)
        PrintType(out, type);
    if (std::size(TypeNames) != Catalogues().back().size())
        throw std::logic_error("a type without a name here");
    out << Inventories;
    return out.str();
}

int Check(const char* file)
{
    std::ifstream stream(file, std::ios::binary);
    const std::string committed{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (committed == PathReference())
        return 0;
    std::cerr << file << " is stale: run scripts/generate\n";
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        if (argc == 3 && std::string(argv[1]) == "--check")
            return Check(argv[2]);
        std::cout << PathReference();
        return 0;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
