#include "FieldWords.h"

#include "PathsWords.h"
#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "samples/Image.h"
#include "structures/Walk.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

using namespace Protocol::SMBIOS;
using namespace Protocol::SMBIOS::Catalogue;
using Images::Bytes;

namespace {

constexpr int MostBitsToList = 4; // a leaf of more is a number

/// What stands at the field, and below it, where a structure is all 01h but for `bytes` there.
class Decoded {
public:
    Decoded(const FieldPlace& place, const Bytes& bytes)
        : Object(Table(place, bytes), Reading::Newest),
          Path("/SMBIOS/Type" + std::to_string(place.Type.Number) + (place.Type.Indexed ? "[1]/" : "/") +
               place.Field.Name)
    {
    }

    NodeView At(const std::string& below = "") const { return Object.Find(Path + below); }
    std::string Text(const std::string& below = "") const { return std::string(At(below).Value()); }

private:
    static TableImage Table(const FieldPlace& place, const Bytes& bytes)
    {
        constexpr std::size_t LongEnough = 64;
        constexpr unsigned short Handle = 0xABCD; // not 0101h, so that no link leads anywhere
        const Images::Structure structure = Images::Structure(place.Type.Number, Handle)
                                                .Fill(place.Field.Offset - HeaderSize, 1)
                                                .Raw(bytes)
                                                .Fill(LongEnough, 1);
        return TableImage::FromBytes(Images::Image({structure}, 9, 9));
    }

    SMBIOSProtocolImpl Object;
    std::string Path;
};

Decoded DecodedNumber(const FieldPlace& place, unsigned int number)
{
    Bytes bytes;
    for (int i = 0; i < place.Field.Size(); ++i)
        bytes.push_back(static_cast<unsigned char>(number >> 8 * i));
    return {place, bytes};
}

/// Whether the field has one offset in every structure, which decoding needs.
bool IsAtOffset(const Section& section)
{
    return section.Holds == Section::Content::Fields && section.Start != Behind;
}

std::string HexWords(const FieldPlace& place)
{
    const Field& field = place.Field;
    if (field.Width == RestOfRecord)
        return "leaf: all bytes from here on, in hexadecimal";
    if (!field.HasFixedWidth())
        return "leaf: as many bytes as " + FieldAt(place.Type, place.Section, field.OffsetOfWidth()) +
               " says, in hexadecimal";
    Bytes example(static_cast<std::size_t>(field.Size()), 0x1F);
    example[0] = 0x12;
    return "leaf: " + ByteCount(field.Size()) + " in hexadecimal, such as " +
           Code(Decoded(place, example).Text());
}

std::string PlainWords(const FieldPlace& place, const std::string& links)
{
    const Field& field = place.Field;
    if (field.Interpretation == FieldInterpretation::String)
        return "leaf: a string";
    if (field.Interpretation == FieldInterpretation::Hex)
        return HexWords(place);
    if (field.Values.CountsIn == Unit::Handle && IsAtOffset(place.Section) &&
        !DecodedNumber(place, 1).At().IsLeaf())
        return "a handle, see [Links](" + links + ")";
    const bool isSigned = field.Interpretation == FieldInterpretation::Signed ||
                          (field.Interpretation == FieldInterpretation::Decimal && field.Size() == 8);
    return "leaf: a number of " + ByteCount(field.Size()) + (isSigned ? " with a sign" : "");
}

const LeafDecoder* LeafDecoderOf(const Field& field)
{
    const auto* const decoder =
        std::find_if(std::begin(LeafDecoders), std::end(LeafDecoders),
                     [&](const LeafDecoder& each) { return field.Values.Kind == each.Decoder; });
    return decoder == std::end(LeafDecoders) ? nullptr : decoder;
}

std::string DecoderWords(const FieldPlace& place)
{
    const LeafDecoder* const decoder = LeafDecoderOf(place.Field);
    if (decoder == nullptr)
        return "inner: the leaves below";
    std::string words = "leaf: " + decoder->Words;
    for (const Bytes& example : decoder->Examples) {
        words += example.size() == 1 ? "; " + InHex(example[0], 2) + ": " : ", such as ";
        words += Code(Decoded(place, example).Text());
    }
    return words;
}

void PrintLeaf(std::ostream& out, const std::string& name, int lowest, int highest, const std::string& texts)
{
    out << "| " << Code("/" + name) << " | " << (highest == lowest ? "" : std::to_string(highest) + ":")
        << lowest << " | " << texts << " |\n";
}

/// "; FFh unknown": each special value that the revision has, of so many bits.
std::string SpecialWords(const Table& values, int bits, Revision revision)
{
    std::string words;
    for (std::size_t i = 0; i < values.SpecialCount; ++i) {
        const Row& row = values.Specials[i];
        if (!row.Has(revision))
            continue;
        const std::string number = row.Value == 0 ? "0" : InHex(row.Value, (bits + 3) / 4);
        const std::string ofMany = row.Value == 0 ? "all 0" : "all F";
        words += "; " + (bits > 64 ? ofMany : number) + " " + row.Text;
    }
    return words;
}

/// Whether the special values name a field that is not read by version.
bool RefersToLaterField(const Type& type, const Table& values)
{
    const Field* const end = type.Fields + type.FieldCountIn(V2_7);
    return std::any_of(values.Specials, values.Specials + values.SpecialCount, [&](const Row& special) {
        const std::string_view name = SeenField(special);
        return special.Has(V2_7) && !name.empty() &&
               std::none_of(type.Fields, end, [&](const Field& each) { return each.Name == name; });
    });
}

/// "a Type 18 or 33 structure".
std::string TargetWords(const Table& handle)
{
    std::string types;
    for (int i = 0; i < handle.TargetCount; ++i)
        types += (i == 0                       ? "Type "
                  : i + 1 < handle.TargetCount ? ", "
                                               : " or ") +
                 std::to_string(handle.Targets[i]);
    return "a " + types + (types.empty() ? "" : " ") + "structure";
}

std::string TextsOf(const Part& part)
{
    if (part.Values.Kind == TableKind::None) {
        const std::string unit = WordsOf(part.Values.CountsIn);
        return "the number" + (unit.empty() ? "" : ", " + unit) +
               SpecialWords(part.Values, part.HighBit - part.LowBit + 1, Newest);
    }
    std::string texts;
    for (std::size_t i = 0; i < part.Values.RowCount; ++i) {
        const Row& row = part.Values.Rows[i];
        texts += (i == 0 ? "" : ", ") + std::to_string(row.Value) + " " + Code(row.Text);
    }
    return texts;
}

/// A leaf that a decoder makes has the bits that change its text.
void PrintDecodedLeaf(std::ostream& out, const FieldPlace& place, const std::string& name)
{
    const auto text = [&](unsigned int number) { return DecodedNumber(place, number).Text("/" + name); };
    int lowest = -1, highest = -1;
    for (int bit = 0; bit < 8 * place.Field.Size(); ++bit) {
        if (text(1U << bit) == text(0))
            continue;
        highest = bit;
        lowest = lowest < 0 ? bit : lowest;
    }
    const int bitCount = highest - lowest + 1;
    std::string texts;
    for (unsigned int value = 0; bitCount <= MostBitsToList && value < 1U << bitCount; ++value)
        texts += (value == 0 ? "" : ", ") + std::to_string(value) + " " + Code(text(value << lowest));
    PrintLeaf(out, name, lowest, highest, texts.empty() ? "the number" : texts);
}

} // namespace

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

std::string InHex(unsigned long long value, int digits)
{
    std::ostringstream text;
    text << std::hex << std::uppercase;
    text.fill('0');
    text.width(digits);
    text << value;
    return text.str() + "h";
}

std::string ByteCount(int count)
{
    return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

std::string FieldAt(const Type& type, const Section& section, int offset)
{
    for (std::size_t s = 0; s <= type.SectionCount; ++s) {
        const Section& each = s == 0 ? type.First : type.Sections[s - 1];
        const bool countsAlike = &each == &section || (IsAtOffset(each) && IsAtOffset(section));
        for (std::size_t i = 0; countsAlike && i < each.FieldCount; ++i) {
            if (each.Fields[i].Offset == offset)
                return Code(each.Fields[i].Name);
        }
    }
    throw std::logic_error("no field at an offset");
}

std::string WordsOf(const FieldPlace& place, const std::string& links)
{
    switch (place.Field.Values.Kind) {
    case TableKind::Enumeration:
        return "leaf: a text below";
    case TableKind::MaskedEnumeration:
        return "leaf: a text below, by the low seven bits";
    case TableKind::Bits:
        return "inner: a leaf for each bit below";
    case TableKind::Packed:
        return "inner: the leaves below";
    case TableKind::None:
        return PlainWords(place, links);
    default:
        return DecoderWords(place);
    }
}

std::string MeaningOf(const FieldPlace& place, Revision revision)
{
    const Field& field = place.Field;
    const Table& values = field.Values;
    if (field.Interpretation == FieldInterpretation::String && values.SpecialCount != 0)
        return std::string(field.Meaning) + "; no string: " + values.Specials[0].Text;
    std::string special = field.HasFixedWidth() ? SpecialWords(values, 8 * field.Size(), revision) : "";
    if (revision != Newest && RefersToLaterField(place.Type, values))
        special += ", with the newest catalogue";
    if (revision == Newest && field.CountOffset != 0)
        special += "; not there where " + FieldAt(place.Type, place.Section, field.CountOffset) + " is 0";
    if (values.CountsIn == Unit::Handle)
        return "handle of " + TargetWords(values) + ": " + field.Meaning + special;
    const std::string unit = WordsOf(values.CountsIn);
    return field.Meaning + (unit.empty() ? "" : " " + unit) + special;
}

bool HasRawLeaf(const FieldPlace& place)
{
    return place.Field.Values.Kind == TableKind::Enumeration && IsAtOffset(place.Section) &&
           DecodedNumber(place, 1).At("_Raw");
}

bool HasTable(const FieldPlace& place)
{
    return place.Field.Values.Kind != TableKind::None && LeafDecoderOf(place.Field) == nullptr;
}

void PrintLeaves(std::ostream& out, const FieldPlace& place)
{
    out << "| Leaf | Bits | Text by the bits' value |\n|---|---|---|\n";
    for (std::size_t i = 0; i < place.Field.Values.PartCount; ++i) {
        const Part& part = place.Field.Values.Parts[i];
        PrintLeaf(out, part.Name, part.LowBit, part.HighBit, TextsOf(part));
    }
    if (HasDecoder(place.Field.Values.Kind)) {
        const Decoded decoded = DecodedNumber(place, 0);
        for (const NodeView leaf : decoded.At().Children())
            PrintDecodedLeaf(out, place, std::string(leaf.Name()));
    }
}
