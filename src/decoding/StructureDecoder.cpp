#include "decoding/StructureDecoder.h"

#include "catalogue/ValueTable.h"
#include "structures/LittleEndian.h"
#include "structures/Walk.h"
#include "tree/NodeStore.h"

#include <algorithm>
#include <charconv>

namespace Protocol::SMBIOS {

using Catalogue::Field;
using Catalogue::RecordLength;
using Catalogue::Section;

namespace {

constexpr std::size_t LongestTextByVersion = 254;

/// A structure's bytes in hexadecimal, behind "0X" and with the NUL.
constexpr std::size_t TextSize = 2 + 2 * 255 + 1;

std::string Numbered(std::string_view name, std::size_t number)
{
    return std::string(name) + "[" + std::to_string(number) + "]";
}

// The handle in a handle field, 0 where it names no structure.
int LinkedHandleOf(std::string_view value)
{
    int handle = 0;
    std::from_chars(value.data(), value.data() + value.size(), handle);
    return handle == 0xFFFF || handle == 0xFFFE ? 0 : handle;
}

} // namespace

StructureDecoder::Area StructureDecoder::Area::From(int offset) const
{
    const int skipped = std::min(offset, Size);
    return {Bytes + skipped, Size - skipped};
}

// Bytes that the field takes, cut at the end of the area; less than 1 where it has none.
int StructureDecoder::Area::WidthOf(const Field& field) const
{
    if (field.HasFixedWidth())
        return field.Size();
    const int left = Size - field.Offset;
    return field.Width == Catalogue::RestOfRecord ? left : std::min(left, ByteAt(field.OffsetOfWidth()));
}

StructureDecoder::StructureDecoder(SMBIOSProtocolImpl& object, const SMBTable& table,
                                   const SMBiosStructure& structure)
    : Object(object), Nodes(*object.ResultNodes), Table(table), Structure(structure),
      LongestText(table.ReadAs == Catalogue::Newest ? WholeString : LongestTextByVersion)
{
}

void StructureDecoder::Decode(TreeNode& node)
{
    const unsigned char* const tableEnd = Object.TableBase + Object.TableLength;
    const int size = Table.ReadAs == Catalogue::Newest ? Structure.Data[LengthOffset]
                                                       : static_cast<int>(tableEnd - Structure.Data);
    const Area all{Structure.Data, size};
    const Catalogue::Type& type = *Table.Definition;
    int start = 0;
    int end = DecodeSection(all, all, type.First, node);
    for (std::size_t i = 0; i < Table.SectionCount; ++i) {
        const Section& section = type.Sections[i];
        const Area before = all.From(start);
        start = section.Start == Catalogue::Behind ? end : section.Start;
        end = start + DecodeSection(all.From(start), before, section, node);
    }
}

// Decodes the section at the start of `area`. `before` is the area of the section in front of it, which holds
// a group's count. Returns the offset of the section's end.
int StructureDecoder::DecodeSection(const Area& area, const Area& before, const Section& section,
                                    TreeNode& node)
{
    switch (section.Holds) {
    case Section::Content::Fields:
        return DecodeFields(area, section, node);
    case Section::Content::Group:
        return DecodeGroup(area, before, section, node);
    case Section::Content::Strings:
        break;
    }
    DecodeStrings(section.Name, node);
    return 0;
}

// Decodes the fields that `area` holds whole. Gives the offset behind the last field, held or not.
int StructureDecoder::DecodeFields(const Area& area, const Section& section, TreeNode& node)
{
    int end = 0;
    for (std::size_t i = 0; i < section.FieldCount; ++i) {
        const Field& field = section.Fields[i];
        if (field.From > Table.ReadAs)
            break;
        const int width = area.WidthOf(field);
        if (area.Holds(field.Offset, width) && HasRecords(area, field))
            DecodeField(area.Bytes + field.Offset, width, field, node);
        end = field.Offset + std::max(width, 0);
    }
    return end;
}

// False for a field that lies within the first of some records, where their count is 0. By version such a
// field is read all the same.
bool StructureDecoder::HasRecords(const Area& area, const Field& field) const
{
    return Table.ReadAs != Catalogue::Newest || field.CountOffset == 0 || area.ByteAt(field.CountOffset) != 0;
}

// The count of the records, and a length that is the same for all, stand in `before`. Gives the offset behind
// the last record that is there, or would be if all that are counted were.
int StructureDecoder::DecodeGroup(const Area& area, const Area& before, const Section& group, TreeNode& node)
{
    const RecordLength& form = group.Length;
    const bool isSame = form.From != RecordLength::Source::Record;
    const int same = form.From == RecordLength::Source::Fixed ? form.Value : before.ByteAt(form.Value);
    const int count = group.Count == Catalogue::AsManyAsFit ? area.Size : before.ByteAt(group.Count);

    int offset = 0;
    for (int n = 1; n <= count; ++n) {
        const int length = isSame ? same : area.ByteAt(offset + form.Value) + form.Plus;
        if (length < form.Minimum || !area.Holds(offset, length))
            break;
        const std::string name = Numbered(group.Name, static_cast<std::size_t>(n));
        DecodeFields({area.Bytes + offset, length}, group, Object.AddNode(node, name, NODE_INNER));
        offset += length;
    }
    return isSame ? count * same : offset;
}

void StructureDecoder::DecodeStrings(std::string_view name, TreeNode& node)
{
    for (std::size_t i = 0; i < Structure.Strings.size(); ++i) {
        const std::string_view text = Structure.Strings[i];
        Nodes.CountText(text);
        Object.AddNode(node, Numbered(name, i + 1), NODE_LEAF, Nodes.Keep(text));
    }
}

void StructureDecoder::DecodeField(const unsigned char* bytes, int width, const Field& field, TreeNode& node)
{
    if (field.Values.Kind == Catalogue::TableKind::Packed) {
        DecodeParts(bytes, width, field, node);
        return;
    }
    char text[TextSize];
    std::string_view value;
    if (field.Width == Catalogue::StringReference) {
        value = Structure.StringAt(*bytes).substr(0, LongestText);
    } else {
        SMBIOSProtocolImpl::ExtractField(reinterpret_cast<const char*>(bytes), text,
                                         static_cast<unsigned char>(width), field.Interpretation);
        value = text;
    }
    Nodes.CountText(value);
    if (field.Values.Kind == Catalogue::TableKind::None)
        StorePlain(value, field, node);
    else
        Object.FillFieldInterpretation(Nodes.ListChild(node, "/", field.Name), value,
                                       ValueTable(field.Values, Table.ReadAs, width));
}

void StructureDecoder::DecodeParts(const unsigned char* bytes, int width, const Field& field, TreeNode& node)
{
    const unsigned long long value = LittleEndian(bytes, static_cast<std::size_t>(width));
    TreeNode& packed = Object.AddNode(node, field.Name, NODE_INNER);
    for (std::size_t i = 0; i < field.Values.PartCount; ++i) {
        const Catalogue::Part& part = field.Values.Parts[i];
        const unsigned long long mask = (1ULL << (part.HighBit - part.LowBit + 1)) - 1;
        const std::string number = std::to_string(value >> part.LowBit & mask);
        TreeNode& partNode = Nodes.ListChild(packed, "/", part.Name);
        if (part.Values.Kind == Catalogue::TableKind::None)
            Object.InsertLeafXNode(number, partNode);
        else
            Object.FillFieldInterpretation(partNode, number, ValueTable(part.Values, Table.ReadAs));
    }
}

// Stores a field without texts of its own below `node`: a link to follow, or a leaf.
void StructureDecoder::StorePlain(std::string_view value, const Field& field, TreeNode& node)
{
    TreeNode& fieldNode = Nodes.ListChild(node, "/", field.Name);
    const int linkedHandle = IsLink(field.Name) ? LinkedHandleOf(value) : 0;
    if (linkedHandle != 0) {
        Object.SubTypeLinks.push_back({Structure.Type, field.Name, fieldNode.Path, linkedHandle});
        Nodes.Overwrite(fieldNode, NODE_INNER);
    } else {
        Object.InsertLeafXNode(value, fieldNode);
    }
}

bool StructureDecoder::IsLink(std::string_view field) const
{
    const auto fields = Object.ValidSubTypes.find(Structure.Type);
    return fields != Object.ValidSubTypes.end() &&
           std::find(fields->second.begin(), fields->second.end(), field) != fields->second.end();
}

} // namespace Protocol::SMBIOS
