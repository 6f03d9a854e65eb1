#include "catalogue/Catalogue.h"

#include "catalogue/Types.h"

#include <iterator>

namespace Protocol::SMBIOS::Catalogue {

namespace {

const Type* const AllTypes[] = {
    &Type000BiosInformation,
    &Type001SystemInformation,
    &Type002BaseboardInformation,
    &Type003SystemEnclosure,
    &Type004ProcessorInformation,
    &Type007CacheInformation,
    &Type008PortConnectorInformation,
    &Type009SystemSlots,
    &Type010OnBoardDevices,
    &Type011OemStrings,
    &Type013BiosLanguage,
    &Type016PhysicalMemoryArray,
    &Type017MemoryDevice,
    &Type018MemoryErrorInformation32,
    &Type019MemoryArrayMappedAddress,
    &Type024HardwareSecurity,
    &Type032SystemBootInformation,
    &Type038IpmiDevice,
    &Type132PlatformMemoryDescription,
    &Type133PlatformReservedMemory,
};

// Row 0 of the built table. A bit table's is a string of 0 and 1 in which a 1 stands for a reported bit, the
// lowest bit first.
std::string Header(const Table& table, Revision revision)
{
    switch (table.Kind) {
    case TableKind::Enumeration:
        return "ENUM";
    case TableKind::MaskedEnumeration:
        return "ENUM_MASK";
    case TableKind::Decoder:
        return table.Decoder;
    case TableKind::Bits:
    case TableKind::None:
        break;
    }
    std::string bits(static_cast<std::size_t>(table.BitCount), '0');
    for (std::size_t i = 0; i < table.RowCount; ++i) {
        if (table.Rows[i].Has(revision))
            bits[static_cast<std::size_t>(table.Rows[i].Value)] = '1';
    }
    return bits;
}

// The key of a row: behind row 0, an enumeration's value 0 stands at key 1, and the reported bits are
// counted.
int Key(const Table& table, const Row& row, std::size_t rowsBefore)
{
    switch (table.Kind) {
    case TableKind::Enumeration:
    case TableKind::MaskedEnumeration:
        return row.Value + 1;
    case TableKind::Bits:
        return static_cast<int>(rowsBefore) + 1;
    case TableKind::Decoder:
    case TableKind::None:
        break;
    }
    return row.Value;
}

ValueTable Build(const Table& table, Revision revision)
{
    ValueTable built(Header(table, revision));
    built.Reserve(table.RowCount);
    for (std::size_t i = 0; i < table.RowCount; ++i) {
        const Row& row = table.Rows[i];
        if (row.Has(revision))
            built.Append(Key(table, row, built.Rows().size()), row.Text);
    }
    return built;
}

SMBTable Build(const Type& type, Revision revision)
{
    SMBTable built;
    built.Indexed = type.Indexed;
    built.Fields.reserve(type.FieldCount);
    for (std::size_t i = 0; i < type.FieldCount; ++i) {
        const Field& field = type.Fields[i];
        if (revision < field.From)
            continue;
        built.Fields.push_back({field.Name, field.Width, field.Interpretation});
        if (field.Values.Kind != TableKind::None)
            built.ValueTables.emplace(field.Name, Build(field.Values, revision));
    }
    return built;
}

} // namespace

std::unordered_map<unsigned char, SMBTable> Build(Revision revision)
{
    std::unordered_map<unsigned char, SMBTable> tables;
    tables.reserve(std::size(AllTypes));
    for (const Type* type : AllTypes) {
        if (revision >= type->From)
            tables.emplace(type->Number, Build(*type, revision));
    }
    return tables;
}

} // namespace Protocol::SMBIOS::Catalogue
