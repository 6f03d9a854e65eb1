// docs/paths.md: fields and texts come from the built catalogues of the five revisions, the words about them
// from PathsWords.h. Fails where they do not fit each other.

#include "FieldWords.h"
#include "Paths.h"
#include "PathsWords.h"
#include "catalogue/Catalogue.h"

#include <array>
#include <iterator>
#include <set>
#include <sstream>
#include <stdexcept>

using namespace Protocol::SMBIOS;

namespace {

constexpr std::size_t RevisionCount = 5;
constexpr const char* RevisionNames[RevisionCount] = {"2.3", "2.4", "2.5", "2.6", "2.7"};

const std::array<Tables, RevisionCount>& Catalogues()
{
    static const std::array<Tables, RevisionCount> all = {
        Catalogue::DefinitionsOf(Catalogue::V2_3), Catalogue::DefinitionsOf(Catalogue::V2_4),
        Catalogue::DefinitionsOf(Catalogue::V2_5), Catalogue::DefinitionsOf(Catalogue::V2_6),
        Catalogue::DefinitionsOf(Catalogue::V2_7),
    };
    return all;
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

/// Fields whose tables would read the same share one.
bool ShareTable(const FieldView& left, const FieldView& right)
{
    const ValueTable& a = *left.Values();
    const ValueTable& b = *right.Values();
    if (a.Header() != b.Header() || left.Size() != right.Size())
        return false;
    return !(IsBits(a) || IsEnumeration(a)) || TextRows(left, IsBits(a)) == TextRows(right, IsBits(b));
}

const char* MeaningOf(const FieldView& field)
{
    for (const Catalogue::Type* type : Catalogue::Types()) {
        for (std::size_t i = 0; type->Number == field.Type && i < type->FieldCount; ++i) {
            if (type->Fields[i].Name == field.Field.Name)
                return type->Fields[i].Meaning;
        }
    }
    throw std::logic_error("a field that no type has: " + std::string(field.Field.Name));
}

void PrintField(std::ostream& out, const FieldView& field)
{
    const std::string name = "/" + std::string(field.Field.Name);
    const std::string place = " | " + Hex(static_cast<unsigned int>(field.Offset), 1) + " | " +
                              RevisionNames[FirstRevision(field.Type, field.Field.Name)] + " | ";
    out << "| " << Code(name) << place << Words(field) << " | " << MeaningOf(field) << " |\n";

    if (HasRawLeaf(field))
        out << "| " << Code(name + "_Raw") << place
            << "leaf: the number itself | no node lists it, only its own path finds it |\n";
}

void PrintType(std::ostream& out, const TypeName& type)
{
    const SMBDefinition& table = Catalogues().back().at(type.Number);
    const std::vector<FieldView> fields = FieldsOf(type.Number, table);

    const std::size_t from = FirstRevision(type.Number, table.Fields.front().Name);
    out << "\n## Type " << static_cast<int>(type.Number) << ": " << type.Name << "\n\n`/SMBIOS/Type"
        << static_cast<int>(type.Number) << (table.Indexed ? "[n]" : "") << "`, from " << RevisionNames[from]
        << "\n\n| Path below | Offset | From | What stands there | Meaning |\n|---|---|---|---|---|\n";
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

} // namespace

std::string PathsByVersion()
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
