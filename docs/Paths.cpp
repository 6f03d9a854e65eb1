// Both documents: fields, records and texts come from the catalogue's data, the words about them from
// PathsWords.h.

#include "Paths.h"

#include "FieldWords.h"
#include "PathsWords.h"
#include "SMBIOSProtocol/StructureTypes.h"
#include "catalogue/Catalogue.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <vector>

using namespace Protocol::SMBIOS;
using namespace Protocol::SMBIOS::Catalogue;

namespace {

constexpr const char* RevisionNames[] = {"2.0", "2.1", "2.2", "2.3", "2.4", "2.5", "2.6", "2.7", "2.8", "3.0",
                                         "3.1", "3.2", "3.3", "3.4", "3.5", "3.6", "3.7", "3.8", "3.9"};
static_assert(std::size(RevisionNames) == Newest + 1);

/// One of the documents: what is read with the newest catalogue, or with those by version, in all of them.
struct Document {
    Revision Last; ///< whose types, fields and texts it has
    std::string Links;

    bool IsNewest() const { return Last == Newest; }
};

const Document ByVersion{V2_7, "#links"};
const Document OfNewest{Newest, "paths.md#links"};

/// "all", "from 2.5", "to 2.6", "2.5 only".
std::string Range(Revision first, Revision last)
{
    const std::string from = RevisionNames[first];
    const std::string to = RevisionNames[last];
    if (last >= V2_7)
        return first <= V2_3 ? "all" : "from " + from;
    if (first == last)
        return from + " only";
    return first <= V2_3 ? "to " + to : from + " to " + to;
}

/// One text a row, with the revisions that have it where they differ.
void PrintTexts(std::ostream& out, const Field& field, const Document& document)
{
    const bool isBits = field.Values.Kind == TableKind::Bits;
    const std::string header = isBits ? "| Bit | Leaf: `Supported` or `Not Supported` |" : "| Raw | Text |";
    out << header << (document.IsNewest() ? "\n|---|---|\n" : " Revisions |\n|---|---|---|\n");
    for (std::size_t i = 0; i < field.Values.RowCount; ++i) {
        const Row& row = field.Values.Rows[i];
        const Revision first = std::max(row.From, field.From);
        if (document.IsNewest() ? !row.Has(Newest) : first > document.Last)
            continue;
        const auto value = static_cast<unsigned int>(row.Value);
        out << "| " << (isBits ? std::to_string(value) : InHex(value, 2 * field.Size())) << " | "
            << Code((isBits ? "/" : "") + std::string(row.Text)) << " |"
            << (document.IsNewest() ? "" : " " + Range(first, row.To) + " |") << '\n';
    }
}

/// The field of `type` whose texts these are, as code.
std::string FieldWith(const Type& type, const Row* texts)
{
    for (std::size_t i = 0; i < type.FieldCount; ++i) {
        if (type.Fields[i].Values.Rows == texts)
            return Code(type.Fields[i].Name);
    }
    throw std::logic_error("texts of no field");
}

std::string TableOf(const FieldPlace& place, const Document& document)
{
    std::ostringstream out;
    const Table& values = place.Field.Values;
    if (values.Kind == TableKind::Packed || HasDecoder(values.Kind))
        PrintLeaves(out, place);
    else
        PrintTexts(out, place.Field, document);
    if (document.IsNewest() && values.LowerRowCount != 0)
        out << "\nAnd each text of " << FieldWith(place.Type, values.LowerRows) << " at its value.\n";
    return out.str();
}

/// What is read of a structure, with the fields that the document has.
std::vector<const Section*> SectionsOf(const Type& type, const Document& document)
{
    std::vector<const Section*> sections = {&type.First};
    for (std::size_t i = 0; document.IsNewest() && i < type.SectionCount; ++i)
        sections.push_back(&type.Sections[i]);
    return sections;
}

std::vector<FieldPlace> FieldsOf(const Type& type, const Section& section, const Document& document)
{
    std::vector<FieldPlace> places;
    for (std::size_t i = 0; i < section.FieldCount; ++i) {
        if (section.Fields[i].From <= document.Last)
            places.push_back({type, section, section.Fields[i]});
    }
    return places;
}

void PrintField(std::ostream& out, const FieldPlace& place, const Document& document)
{
    const Field& field = place.Field;
    const bool isOfGroup = place.Section.Holds == Section::Content::Group;
    const std::string path =
        "/" + (isOfGroup ? std::string(place.Section.Name) + "[n]/" : std::string()) + field.Name;
    const std::string where = " | " + InHex(field.Offset, 2) + " | " + RevisionNames[field.From] + " | ";
    out << "| " << Code(path) << where << WordsOf(place, document.Links) << " | "
        << MeaningOf(place, document.Last) << " |\n";
    if (HasRawLeaf(place))
        out << "| " << Code(path + "_Raw") << where
            << "leaf: the number itself | no node lists it, only its own path finds it |\n";
}

/// "as many as `X` says, 5 bytes each, from 13h".
std::string GroupWords(const Type& type, const Section& group, const Section& before)
{
    using Source = RecordLength::Source;
    const RecordLength& length = group.Length;
    std::string words = group.Count == AsManyAsFit
                            ? "as many as fit"
                            : "as many as " + FieldAt(type, before, group.Count) + " says";
    switch (length.From) {
    case Source::Fixed:
        words += ", " + ByteCount(length.Value) + " each";
        break;
    case Source::Structure:
        words += ", each as long as " + FieldAt(type, before, length.Value) + " says";
        break;
    case Source::Record:
        words += ", each as long as its own " + FieldAt(type, group, length.Value) + " says" +
                 (length.Plus == 0 ? "" : " and " + ByteCount(length.Plus) + " more");
        break;
    }
    return words + (group.Start == Behind ? ", from there on"
                                          : ", from " + InHex(static_cast<unsigned int>(group.Start), 2));
}

/// What a section begins with: where it lies, and how often. Empty: it goes on with the one before.
std::string Heading(const Type& type, const Section& section, const Section* before)
{
    switch (section.Holds) {
    case Section::Content::Strings:
        return "\n`/" + std::string(section.Name) + "[n]`: each string of the structure, in order.\n";
    case Section::Content::Group:
        return "\n`/" + std::string(section.Name) + "[n]`: " + GroupWords(type, section, *before) + ".\n\n";
    case Section::Content::Fields:
        break;
    }
    if (before == nullptr)
        return "\n";
    if (section.Start != Behind)
        return "";
    const bool isGroup = before->Holds == Section::Content::Group;
    return "\nBehind " + (isGroup ? "the last of these" : Code(before->Fields[before->FieldCount - 1].Name)) +
           ":\n\n";
}

void PrintSections(std::ostream& out, const Type& type, const Document& document)
{
    const Section* before = nullptr;
    for (const Section* section : SectionsOf(type, document)) {
        const std::string heading = Heading(type, *section, before);
        out << heading;
        if (!heading.empty() && section->FieldCount != 0)
            out << "| Path below | Offset | From | What stands there | Meaning |\n|---|---|---|---|---|\n";
        for (const FieldPlace& place : FieldsOf(type, *section, document))
            PrintField(out, place, document);
        before = section;
    }
}

/// Fields whose tables say the same share one.
void PrintTables(std::ostream& out, const Type& type, const Document& document)
{
    std::vector<std::pair<std::string, std::string>> tables; // names and texts
    for (const Section* section : SectionsOf(type, document)) {
        for (const FieldPlace& place : FieldsOf(type, *section, document)) {
            if (!HasTable(place))
                continue;
            const std::string text = TableOf(place, document);
            const auto same = std::find_if(tables.begin(), tables.end(),
                                           [&](const auto& each) { return each.second == text; });
            if (same == tables.end())
                tables.emplace_back(Code(place.Field.Name), text);
            else
                same->first += ", " + Code(place.Field.Name);
        }
    }
    for (const auto& [names, text] : tables)
        out << "\n### " << names << "\n\n" << text;
}

std::string_view TitleOf(const Type& type)
{
    const auto* const title = std::find_if(std::begin(StructureTypes), std::end(StructureTypes),
                                           [&](const auto& each) { return each.Number == type.Number; });
    if (title == std::end(StructureTypes))
        throw std::logic_error("a type without a title: " + std::to_string(type.Number));
    return title->Title;
}

void PrintType(std::ostream& out, const Type& type, const Document& document)
{
    const std::string number = std::to_string(type.Number);
    const std::string path = "/SMBIOS/Type" + number;
    out << "\n## Type " << number << ": " << TitleOf(type) << "\n\n"
        << Code(path + (type.Indexed ? "[n]" : ""));
    if (!document.IsNewest())
        out << ", from " << RevisionNames[type.From];
    else if (!type.Indexed)
        out << ", " << Code(path + "[2]") << ", ...";
    out << '\n';
    PrintSections(out, type, document);
    if (document.IsNewest() && type.Older != nullptr) {
        out << "\nIn a table older than version " << type.Since.Major << "." << type.Since.Minor << ":\n";
        PrintSections(out, *type.Older, document);
    }
    for (const TypeNote& note : NewestNotes) {
        if (document.IsNewest() && note.Type == type.Number)
            out << '\n' << note.Words << '\n';
    }
    PrintTables(out, type, document);
}

void PrintTypes(std::ostream& out, const Document& document)
{
    for (const Type* type : Types()) {
        if (type->From <= document.Last)
            PrintType(out, *type, document);
    }
}

} // namespace

std::string PathsByVersion()
{
    std::ostringstream out;
    out << Introduction;
    PrintTypes(out, ByVersion);
    out << Inventories;
    return out.str();
}

std::string PathsOfNewest()
{
    std::ostringstream out;
    out << NewestIntroduction;
    PrintTypes(out, OfNewest);
    return out.str();
}
