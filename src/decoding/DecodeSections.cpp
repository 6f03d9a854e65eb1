// From a raw structure to nodes, with the newest catalogue. Unlike by version, the structure's length byte
// decides: what lies partly or wholly behind the formatted area is not there. Read are, in the order of the
// type's sections:
//
//   fields    at their offsets, from the structure's first byte or from where the section before ends
//   groups    records that repeat, as many as a field counts or as fit: nodes "Name[1]", "Name[2]", ...
//   strings   all of them: leaves "Name[1]", "Name[2]", ...

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "catalogue/Definition.h"
#include "structures/LittleEndian.h"
#include "tree/NodeStore.h"

#include <algorithm>

namespace Protocol::SMBIOS {

using Catalogue::Field;
using Catalogue::Part;
using Catalogue::RecordLength;
using Catalogue::Section;

namespace {

constexpr std::size_t LengthOffset = 1;

/// As many bytes as a structure can hold, behind "0X" and with the NUL.
constexpr std::size_t TextSize = 2 + 2 * 255 + 1;

std::string Numbered(std::string_view name, std::size_t number)
{
    return std::string(name) + "[" + std::to_string(number) + "]";
}

} // namespace

// The formatted area of a structure, or what of it lies behind some offset, or one record in it.
struct SMBIOSProtocolImpl::Area {
    const SMBiosStructure& Structure;
    const unsigned char* Bytes;
    int Size;

    bool Holds(int offset, int width) const { return width > 0 && offset + width <= Size; }
    int ByteAt(int offset) const { return Holds(offset, 1) ? Bytes[offset] : 0; }

    Area From(int offset) const
    {
        const int skipped = std::min(offset, Size);
        return {Structure, Bytes + skipped, Size - skipped};
    }

    Area Record(int offset, int length) const { return {Structure, Bytes + offset, length}; }

    // Bytes that the field takes, cut at the end of the area; less than 1 where it has none.
    int WidthOf(const Field& field) const
    {
        if (field.HasFixedWidth())
            return field.Size();
        const int left = Size - field.Offset;
        return field.Width == Catalogue::RestOfRecord ? left : std::min(left, ByteAt(field.OffsetOfWidth()));
    }
};

void SMBIOSProtocolImpl::DecodeSections(const SMBTable& table, const SMBiosStructure& structure,
                                        TreeNode& node)
{
    const Area all{structure, structure.Data, structure.Data[LengthOffset]};
    int start = 0; // of the section before
    int end = 0;   // of the section before
    for (const SMBSection& section : table.Definition->Sections) {
        const Area before = all.From(start);
        start = section.Data->Start == Catalogue::Behind ? end : section.Data->Start;
        switch (section.Data->Holds) {
        case Section::Content::Fields:
            end = start + DecodeFieldsIn(all.From(start), section, node);
            break;
        case Section::Content::Group:
            end = start + DecodeGroup(all.From(start), section, before, node);
            break;
        case Section::Content::Strings:
            DecodeStrings(structure, section.Data->Name, node);
            break;
        }
    }
}

void SMBIOSProtocolImpl::DecodeStrings(const SMBiosStructure& structure, std::string_view name,
                                       TreeNode& node)
{
    for (std::size_t i = 0; i < structure.Strings.size(); ++i) {
        ResultNodes->CountText(structure.Strings[i]);
        AddLeaf(node, Numbered(name, i + 1), structure.Strings[i]);
    }
}

// Decodes a section's fields as far as `area` holds them. Gives the offset behind the last of them, held or
// not.
int SMBIOSProtocolImpl::DecodeFieldsIn(const Area& area, const SMBSection& section, TreeNode& node)
{
    const ValueTable* const* values = section.Values.data();
    int end = 0;
    for (std::size_t i = 0; i < section.Data->FieldCount; ++i) {
        const Field& field = section.Data->Fields[i];
        const int width = area.WidthOf(field);
        if (area.Holds(field.Offset, width))
            DecodeField(area, field, values, width, node);
        end = field.Offset + std::max(width, 0);
        values += std::max<std::size_t>(field.Values.PartCount, 1);
    }
    return end;
}

// Decodes the records at the start of `area`; their count, and a length that is the same for all, stand in
// `before`. Gives the offset behind the last record that is there, or would be if all that are counted were.
int SMBIOSProtocolImpl::DecodeGroup(const Area& area, const SMBSection& section, const Area& before,
                                    TreeNode& node)
{
    const Section& group = *section.Data;
    const RecordLength& form = group.Length;
    const bool isSame = form.From != RecordLength::Source::Record;
    const int same = form.From == RecordLength::Source::Fixed ? form.Value : before.ByteAt(form.Value);
    const int count = group.Count == Catalogue::AsManyAsFit ? area.Size : before.ByteAt(group.Count);

    int offset = 0;
    for (int n = 1; n <= count; ++n) {
        const int length = isSame ? same : area.ByteAt(offset + form.Value) + form.Plus;
        if (length < form.Minimum || !area.Holds(offset, length))
            break;
        TreeNode& record = AddInner(node, Numbered(group.Name, static_cast<std::size_t>(n)));
        DecodeFieldsIn(area.Record(offset, length), section, record);
        offset += length;
    }
    return isSame ? count * same : offset;
}

// `values` has the field's texts, or those of its parts.
void SMBIOSProtocolImpl::DecodeField(const Area& area, const Field& field, const ValueTable* const* values,
                                     int width, TreeNode& node)
{
    const unsigned char* const bytes = area.Bytes + field.Offset;
    if (field.Values.Kind == Catalogue::TableKind::Packed) {
        DecodeParts(field, values, LittleEndian(bytes, static_cast<std::size_t>(width)), node);
        return;
    }
    char text[TextSize];
    std::string_view value;
    if (field.Width == Catalogue::StringReference) {
        value = area.Structure.StringAt(*bytes);
    } else {
        ExtractField(reinterpret_cast<const char*>(bytes), text, static_cast<unsigned char>(width),
                     field.Interpretation);
        value = text;
    }
    ResultNodes->CountText(value);
    if (*values != nullptr)
        FillFieldInterpretation(ListChild(node, "/", field.Name), value, **values);
    else
        StorePlain(node, field.Name, value, area.Structure.Type);
}

void SMBIOSProtocolImpl::DecodeParts(const Field& field, const ValueTable* const* values,
                                     unsigned long long value, TreeNode& node)
{
    TreeNode& packed = AddInner(node, field.Name);
    for (std::size_t i = 0; i < field.Values.PartCount; ++i) {
        const Part& part = field.Values.Parts[i];
        const unsigned long long mask = (1ULL << (part.HighBit - part.LowBit + 1)) - 1;
        const std::string number = std::to_string(value >> part.LowBit & mask);
        if (values[i] != nullptr)
            FillFieldInterpretation(ListChild(packed, "/", part.Name), number, *values[i]);
        else
            AddLeaf(packed, part.Name, number);
    }
}

} // namespace Protocol::SMBIOS
