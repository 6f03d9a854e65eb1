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
    &Type005MemoryController,
    &Type006MemoryModule,
    &Type007CacheInformation,
    &Type008PortConnectorInformation,
    &Type009SystemSlots,
    &Type010OnBoardDevices,
    &Type011OemStrings,
    &Type012SystemConfigurationOptions,
    &Type013BiosLanguage,
    &Type014GroupAssociations,
    &Type015SystemEventLog,
    &Type016PhysicalMemoryArray,
    &Type017MemoryDevice,
    &Type018MemoryErrorInformation32,
    &Type019MemoryArrayMappedAddress,
    &Type020MemoryDeviceMappedAddress,
    &Type021BuiltInPointingDevice,
    &Type022PortableBattery,
    &Type023SystemReset,
    &Type024HardwareSecurity,
    &Type025SystemPowerControls,
    &Type026VoltageProbe,
    &Type027CoolingDevice,
    &Type028TemperatureProbe,
    &Type029ElectricalCurrentProbe,
    &Type030OutOfBandRemoteAccess,
    &Type031BootIntegrityServices,
    &Type032SystemBootInformation,
    &Type033MemoryErrorInformation64,
    &Type034ManagementDevice,
    &Type035ManagementDeviceComponent,
    &Type036ManagementDeviceThresholds,
    &Type037MemoryChannel,
    &Type038IpmiDevice,
    &Type039SystemPowerSupply,
    &Type040AdditionalInformation,
    &Type041OnboardDevicesExtended,
    &Type042ManagementControllerHostInterface,
    &Type043TpmDevice,
    &Type044ProcessorAdditionalInformation,
    &Type045FirmwareInventory,
    &Type046StringProperty,
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
    case TableKind::Packed:
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
    case TableKind::Packed:
    case TableKind::None:
        break;
    }
    return row.Value;
}

void AppendRows(ValueTable& built, const Table& table, const Row* rows, std::size_t count, Revision revision)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (rows[i].Has(revision))
            built.Append(Key(table, rows[i], built.Rows().size()), rows[i].Text);
    }
}

ValueTable Build(const Table& table, Revision revision)
{
    const std::size_t lowerRowCount = revision == Newest ? table.LowerRowCount : 0;
    ValueTable built(Header(table, revision));
    built.Reserve(lowerRowCount + table.RowCount);
    AppendRows(built, table, table.LowerRows, lowerRowCount, revision);
    AppendRows(built, table, table.Rows, table.RowCount, revision);
    return built;
}

// Adds the texts of a field, or of a part of one, under its name. Null where it has none.
const ValueTable* AddValues(ValueTableMap& values, const char* name, const Table& table, Revision revision)
{
    if (table.Kind == TableKind::None || table.Kind == TableKind::Packed)
        return nullptr;
    return &values.emplace(name, Build(table, revision)).first->second;
}

SMBDefinition Define(const Type& type, Revision revision)
{
    SMBDefinition definition;
    definition.Indexed = type.Indexed;
    definition.Fields.reserve(type.FieldCount);
    for (std::size_t i = 0; i < type.FieldCount; ++i) {
        const Field& field = type.Fields[i];
        if (revision < field.From)
            continue;
        const ValueTable* const values =
            AddValues(definition.ValueTables, field.Name, field.Values, revision);
        definition.Fields.push_back({field.Name, field.Width, field.Interpretation, values});
    }
    return definition;
}

Definitions Define(Revision revision)
{
    Definitions definitions;
    for (const Type* type : AllTypes) {
        if (revision >= type->From)
            definitions.emplace(type->Number, Define(*type, revision));
    }
    return definitions;
}

template <Revision revision>
const Definitions& DefinitionsOf()
{
    static const Definitions definitions = Define(revision);
    return definitions;
}

SMBSection DefineSection(const Section& section, ValueTableMap& values)
{
    SMBSection defined{&section, {}};
    for (std::size_t i = 0; i < section.FieldCount; ++i) {
        const Field& field = section.Fields[i];
        if (field.Values.Kind != TableKind::Packed)
            defined.Values.push_back(AddValues(values, field.Name, field.Values, Newest));
        for (std::size_t k = 0; k < field.Values.PartCount; ++k) {
            const Part& part = field.Values.Parts[k];
            defined.Values.push_back(AddValues(values, part.Name, part.Values, Newest));
        }
    }
    return defined;
}

SMBDefinition DefineNewest(const Type& type, bool withSections)
{
    SMBDefinition definition = Define(type, Newest);
    definition.Sections.push_back(DefineSection(type.First, definition.ValueTables));
    for (std::size_t i = 0; withSections && i < type.SectionCount; ++i)
        definition.Sections.push_back(DefineSection(type.Sections[i], definition.ValueTables));
    return definition;
}

Definitions DefineNewest()
{
    Definitions definitions;
    for (const Type* type : AllTypes)
        definitions.emplace(type->Number, DefineNewest(*type, true));
    return definitions;
}

// Those types whose sections stand in later tables alone, without them.
Definitions DefineWithoutSections()
{
    Definitions definitions;
    for (const Type* type : AllTypes) {
        if (TableVersion() < type->SectionsSince)
            definitions.emplace(type->Number, DefineNewest(*type, false));
    }
    return definitions;
}

} // namespace

const Definitions& DefinitionsOf(Revision revision)
{
    static constexpr const Definitions& (*Of[])() = {DefinitionsOf<V2_3>, DefinitionsOf<V2_4>,
                                                     DefinitionsOf<V2_5>, DefinitionsOf<V2_6>,
                                                     DefinitionsOf<V2_7>};
    return Of[revision]();
}

Tables TablesOf(Revision revision)
{
    Tables tables;
    const Definitions& definitions = DefinitionsOf(revision);
    tables.reserve(definitions.size());
    for (const auto& [type, definition] : definitions)
        tables[type].Definition = &definition;
    return tables;
}

const Definitions& NewestDefinitions()
{
    static const Definitions definitions = DefineNewest();
    return definitions;
}

Tables NewestTables(TableVersion version)
{
    static const Definitions withoutSections = DefineWithoutSections();
    Tables tables;
    tables.reserve(std::size(AllTypes));
    for (const Type* type : AllTypes)
        tables[type->Number].Definition =
            &(version < type->SectionsSince ? withoutSections : NewestDefinitions()).at(type->Number);
    return tables;
}

SMBTable TableWithoutData()
{
    static const SMBDefinition definition = DefineNewest(TypeWithoutTable, true);
    return {&definition, {}, {}};
}

} // namespace Protocol::SMBIOS::Catalogue
