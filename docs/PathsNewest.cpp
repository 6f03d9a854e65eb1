// docs/paths-newest.md: fields, records and texts come from the built newest catalogue, the words about them
// from NewestWords.h. Fails where they do not fit each other.

#include "FieldWords.h"
#include "NewestWords.h"
#include "Paths.h"
#include "catalogue/Catalogue.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>

using namespace Protocol::SMBIOS;
using Catalogue::Field;
using Catalogue::Section;
using Catalogue::TableKind;

namespace {

const Tables& NewestCatalogue()
{
    static const Tables tables = Catalogue::NewestDefinitions();
    return tables;
}

const Tables& CatalogueBefore()
{
    static const Tables tables = Catalogue::DefinitionsOf(Catalogue::V2_7);
    return tables;
}

/// One type, and what is said of it.
struct TypeView {
    unsigned char Number;
    const SMBDefinition& Table;
    std::vector<FieldView> Before; ///< the fields that revision 2.7 has too

    const FieldView* FieldBefore(const Field& field) const
    {
        const auto found = std::find_if(Before.begin(), Before.end(),
                                        [&](const FieldView& each) { return each.Field.Name == field.Name; });
        return found == Before.end() ? nullptr : &*found;
    }
};

const char* NameOf(unsigned char type)
{
    const auto hasNumber = [type](const TypeName& each) { return each.Number == type; };
    const auto* name = std::find_if(std::begin(TypeNames), std::end(TypeNames), hasNumber);
    if (name != std::end(TypeNames))
        return name->Name;
    name = std::find_if(std::begin(NewestTypeNames), std::end(NewestTypeNames), hasNumber);
    if (name == std::end(NewestTypeNames))
        throw std::logic_error("a type without a name: " + std::to_string(type));
    return name->Name;
}

std::string Bytes(int count)
{
    return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

/// The field of `section` at `offset`, such as the count of the group behind.
std::string FieldAt(const Section& section, int offset)
{
    for (std::size_t i = 0; i < section.FieldCount; ++i) {
        if (section.Fields[i].Offset == offset)
            return Code(section.Fields[i].Name);
    }
    throw std::logic_error("no field at an offset");
}

std::string PlainWords(const Section& section, const Field& field)
{
    switch (field.Interpretation) {
    case FieldInterpretation::String:
        return "leaf: a string";
    case FieldInterpretation::Signed:
        return "leaf: a number of " + Bytes(field.Size()) + " with a sign";
    case FieldInterpretation::Decimal:
    case FieldInterpretation::Unsigned:
        return "leaf: a number of " + Bytes(field.Size());
    case FieldInterpretation::Hex:
    case FieldInterpretation::HexBare:
        break;
    }
    if (field.HasFixedWidth())
        return "leaf: " + Bytes(field.Size()) + " in hexadecimal";
    if (field.Width == Catalogue::RestOfRecord)
        return "leaf: all bytes from here on, in hexadecimal";
    return "leaf: as many bytes as " + FieldAt(section, field.OffsetOfWidth()) + " says, in hexadecimal";
}

std::string WordsOf(const TypeView& type, const Section& section, const Field& field)
{
    switch (field.Values.Kind) {
    case TableKind::Enumeration:
        return "leaf: a text below";
    case TableKind::Bits:
        return "inner: a leaf for each bit below";
    case TableKind::Packed:
        return "inner: the leaves below";
    case TableKind::MaskedEnumeration:
    case TableKind::Decoder:
    case TableKind::None:
        break;
    }
    const FieldView* const before = type.FieldBefore(field);
    if (before == nullptr)
        return PlainWords(section, field);
    std::string words = Words(*before);
    const std::string here = "(#links)";
    const std::size_t link = words.find(here);
    return link == std::string::npos ? words : words.replace(link, here.size(), "(paths.md#links)");
}

void PrintFields(std::ostream& out, const TypeView& type, const Section& section)
{
    const std::string parent = section.Holds == Section::Content::Group
                                   ? "/" + std::string(section.Name) + "[n]/"
                                   : std::string("/");
    out << "| Path below | Offset | What stands there | Meaning |\n|---|---|---|---|\n";
    for (std::size_t i = 0; i < section.FieldCount; ++i) {
        const Field& field = section.Fields[i];
        const std::string place = " | " + Hex(field.Offset, 1) + " | ";
        out << "| " << Code(parent + field.Name) << place << WordsOf(type, section, field) << " | "
            << field.Meaning << " |\n";
        const FieldView* const before = type.FieldBefore(field);
        if (before != nullptr && HasRawLeaf(*before))
            out << "| " << Code(parent + field.Name + "_Raw") << place
                << "leaf: the number itself | no node lists it, only its own path finds it |\n";
    }
}

/// "as many as `X` says, 5 bytes each, from 13h".
std::string GroupWords(const Section& group, const Section& before)
{
    using Source = Catalogue::RecordLength::Source;
    const Catalogue::RecordLength& length = group.Length;
    std::string words = group.Count == Catalogue::AsManyAsFit
                            ? "as many as fit"
                            : "as many as " + FieldAt(before, group.Count) + " says";
    switch (length.From) {
    case Source::Fixed:
        words += ", " + Bytes(length.Value) + " each";
        break;
    case Source::Structure:
        words += ", each as long as " + FieldAt(before, length.Value) + " says";
        break;
    case Source::Record:
        words += ", each as long as its own " + FieldAt(group, length.Value) + " says" +
                 (length.Plus == 0 ? "" : " and " + Bytes(length.Plus) + " more");
        break;
    }
    return words + (group.Start == Catalogue::Behind
                        ? ", from there on"
                        : ", from " + Hex(static_cast<unsigned int>(group.Start), 1));
}

/// What a section begins with: where it lies, and how often.
std::string Heading(const Section& section, const Section& before)
{
    switch (section.Holds) {
    case Section::Content::Strings:
        return "`/" + std::string(section.Name) + "[n]`: each string of the structure, in order.\n";
    case Section::Content::Group:
        return "`/" + std::string(section.Name) + "[n]`: " + GroupWords(section, before) + ".\n\n";
    case Section::Content::Fields:
        break;
    }
    if (section.Start != Catalogue::Behind)
        return "And:\n\n";
    const bool isGroup = before.Holds == Section::Content::Group;
    return std::string("Behind ") +
           (isGroup ? "the last of these" : Code(before.Fields[before.FieldCount - 1].Name)) + ":\n\n";
}

void PrintBits(std::ostream& out, const ValueTable& values)
{
    out << "| Bit | Leaf: `Supported` or `Not Supported` |\n|---|---|\n";
    std::size_t bit = values.Header().find('1');
    for (const ValueTable::Row& row : values.Rows()) {
        out << "| " << bit << " | " << Code("/" + std::string(row.Text)) << " |\n";
        bit = values.Header().find('1', bit + 1);
    }
}

void PrintEnumeration(std::ostream& out, const TypeView& type, const Field& field)
{
    const ValueTable& values = type.Table.ValueTables.at(field.Name);
    const int first = field.Values.LowerRowCount == 0 ? 0 : field.Values.Rows[0].Value;
    out << "| Raw | Text |\n|---|---|\n";
    for (const ValueTable::Row& row : values.Rows()) {
        if (row.Key > first)
            out << "| " << Hex(static_cast<unsigned int>(row.Key - 1), field.Size()) << " | "
                << Code(std::string(row.Text)) << " |\n";
    }
}

void PrintParts(std::ostream& out, const TypeView& type, const Field& field)
{
    out << "| Leaf | Bits | Text by the bits' value |\n|---|---|---|\n";
    for (std::size_t i = 0; i < field.Values.PartCount; ++i) {
        const Catalogue::Part& part = field.Values.Parts[i];
        out << "| " << Code("/" + std::string(part.Name)) << " | ";
        if (part.HighBit != part.LowBit)
            out << int{part.HighBit} << ":";
        out << int{part.LowBit} << " | ";
        const auto values = type.Table.ValueTables.find(part.Name);
        if (values == type.Table.ValueTables.end())
            out << "the number";
        const char* separator = "";
        for (std::size_t k = 0; values != type.Table.ValueTables.end() && k < values->second.Rows().size();
             ++k) {
            const ValueTable::Row& row = values->second.Rows()[k];
            out << separator << row.Key - 1 << " " << Code(std::string(row.Text));
            separator = ", ";
        }
        out << " |\n";
    }
}

/// What the field's table says; fields that say the same share it. Empty: it has none.
std::string TableText(const TypeView& type, const Field& field)
{
    std::ostringstream out;
    const FieldView* const before = type.FieldBefore(field);
    switch (field.Values.Kind) {
    case TableKind::Bits:
        PrintBits(out, type.Table.ValueTables.at(field.Name));
        break;
    case TableKind::Enumeration:
    case TableKind::MaskedEnumeration:
        PrintEnumeration(out, type, field);
        break;
    case TableKind::Packed:
        PrintParts(out, type, field);
        break;
    case TableKind::Decoder:
        if (Words(*before).find("below") != std::string::npos)
            PrintChildTable(out, *before);
        break;
    case TableKind::None:
        break;
    }
    return out.str();
}

void PrintTables(std::ostream& out, const TypeView& type)
{
    std::vector<std::pair<std::string, std::string>> tables; // headings and texts
    for (const SMBSection& section : type.Table.Sections) {
        for (std::size_t i = 0; i < section.Data->FieldCount; ++i) {
            const Field& field = section.Data->Fields[i];
            const std::string text = TableText(type, field);
            const auto same = std::find_if(tables.begin(), tables.end(),
                                           [&](const auto& each) { return each.second == text; });
            if (text.empty())
                continue;
            if (same != tables.end())
                same->first += ", " + Code(field.Name);
            else
                tables.emplace_back(Code(field.Name), text);
            if (field.Values.LowerRowCount != 0)
                tables.back().second += "\nAnd each text of `ProcessorFamily` at its value.\n";
        }
    }
    for (const auto& [heading, text] : tables)
        out << "\n### " << heading << "\n\n" << text;
}

void PrintType(std::ostream& out, const TypeView& type)
{
    const std::string number = std::to_string(type.Number);
    const std::string path = "/SMBIOS/Type" + number;
    out << "\n## Type " << number << ": " << NameOf(type.Number) << "\n\n"
        << (type.Table.Indexed ? Code(path + "[n]") : Code(path) + ", " + Code(path + "[2]") + ", ...")
        << "\n";
    const Section* before = nullptr;
    for (const auto& [section, values] : type.Table.Sections) {
        out << '\n' << (before == nullptr ? "" : Heading(*section, *before));
        if (section->FieldCount != 0)
            PrintFields(out, type, *section);
        before = section;
    }
    for (const TypeNote& note : NewestNotes) {
        if (note.Type == type.Number)
            out << '\n' << note.Words << '\n';
    }
    PrintTables(out, type);
}

} // namespace

std::string PathsOfNewest()
{
    std::ostringstream out;
    out << NewestIntroduction;
    for (const auto& [number, table] :
         std::map<int, SMBDefinition>(NewestCatalogue().begin(), NewestCatalogue().end())) {
        const auto before = CatalogueBefore().find(static_cast<unsigned char>(number));
        PrintType(out, {static_cast<unsigned char>(number), table,
                        before == CatalogueBefore().end() ? std::vector<FieldView>()
                                                          : FieldsOf(before->first, before->second)});
    }
    return out.str();
}
