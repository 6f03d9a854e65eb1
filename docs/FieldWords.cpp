#include "FieldWords.h"

#include "PathsWords.h"
#include "samples/Image.h"

#include <map>
#include <sstream>
#include <stdexcept>

using namespace Protocol::SMBIOS;
using Images::Bytes;

namespace {

constexpr int StringReference = 17;
constexpr std::size_t HeaderSize = 4;

/// What stands at and below the field of a structure that is all 01h but for `bytes` there. `path` becomes
/// the field's path, with `suffix` behind it.
std::map<std::string, _XNode> Decoded(const FieldView& field, const Bytes& bytes, std::string& path,
                                      const char* suffix = "")
{
    constexpr std::size_t LongEnough = 64;
    constexpr unsigned short Handle = 0xABCD; // not 0101h, so that no link leads anywhere
    Bytes image = Images::Image({Images::Structure(field.Type, Handle)
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
    case FieldInterpretation::Signed:
    case FieldInterpretation::Unsigned:
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

} // namespace

int FieldView::Size() const
{
    return Field.Width == StringReference ? 1 : Field.Width;
}

const ValueTable* FieldView::Values() const
{
    const auto values = Table.ValueTables.find(Field.Name);
    return values == Table.ValueTables.end() ? nullptr : &values->second;
}

std::vector<FieldView> FieldsOf(unsigned char type, const SMBDefinition& table)
{
    std::vector<FieldView> fields;
    std::size_t offset = HeaderSize;
    for (const SMBField& field : table.Fields) {
        fields.push_back({type, table, field, offset});
        offset += static_cast<std::size_t>(fields.back().Size());
    }
    return fields;
}

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

bool IsBits(const ValueTable& table)
{
    return table.Header().find_first_not_of("01") == std::string::npos;
}

bool IsEnumeration(const ValueTable& table)
{
    return table.Header() == "ENUM" || table.Header() == "ENUM_MASK";
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

bool HasRawLeaf(const FieldView& field)
{
    std::string path;
    return Decoded(field, {1}, path, "_Raw").count(path) != 0;
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
