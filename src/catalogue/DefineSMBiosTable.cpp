// From the version of the table to its catalogue, and the fixed top of the tree: the root, a node for each
// type, and the two inventories.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "catalogue/Catalogue.h"
#include "services/Failure.h"
#include "tree/NodeStore.h"

#include <algorithm>
#include <charconv>

namespace Protocol::SMBIOS {

void SMBIOSProtocolImpl::DefineSMBiosTable()
{
    using Builder = void (SMBIOSProtocolImpl::*)();
    static constexpr struct {
        std::string_view Version;
        Builder Build;
    } Builders[] = {
        {"2.3", &SMBIOSProtocolImpl::FillStaticInfoSMBIOSSpec_23},
        {"2.4", &SMBIOSProtocolImpl::FillStaticInfoSMBIOSSpec_24},
        {"2.5", &SMBIOSProtocolImpl::FillStaticInfoSMBIOSSpec_25},
        {"2.6", &SMBIOSProtocolImpl::FillStaticInfoSMBIOSSpec_26},
        {"2.7", &SMBIOSProtocolImpl::FillStaticInfoSMBIOSSpec_27},
        {"2.8", &SMBIOSProtocolImpl::FillStaticInfoSMBIOSSpec_27},
        {"3.0", &SMBIOSProtocolImpl::FillStaticInfoSMBIOSSpec_27},
    };

    const auto* const builder =
        std::find_if(std::begin(Builders), std::end(Builders),
                     [this](const auto& each) { return each.Version == SMBiosVersion; });
    if (builder == std::end(Builders))
        RaiseFailure(RESULT_UNSUPPORTED_VERSION);
    (this->*builder->Build)();
    PlantTop();
}

void SMBIOSProtocolImpl::PlantTop()
{
    TreeNode& root = NodeAt(RootPath);
    Overwrite(root, NODE_INNER);
    for (const unsigned char type : CataloguedTypes())
        AddInner(root, "Type" + std::to_string(type));
    AddInner(root, "ProcessorInfo");
    AddInner(root, "MemoryArray");
}

void SMBIOSProtocolImpl::FillStaticInfoSMBIOSSpec_23()
{
    TypeTables = Catalogue::TablesOf(Catalogue::V2_3);
}

void SMBIOSProtocolImpl::FillStaticInfoSMBIOSSpec_24()
{
    TypeTables = Catalogue::TablesOf(Catalogue::V2_4);
}

void SMBIOSProtocolImpl::FillStaticInfoSMBIOSSpec_25()
{
    TypeTables = Catalogue::TablesOf(Catalogue::V2_5);
}

void SMBIOSProtocolImpl::FillStaticInfoSMBIOSSpec_26()
{
    TypeTables = Catalogue::TablesOf(Catalogue::V2_6);
}

void SMBIOSProtocolImpl::FillStaticInfoSMBIOSSpec_27()
{
    TypeTables = Catalogue::TablesOf(Catalogue::V2_7);
}

void SMBIOSProtocolImpl::FillNewest()
{
    Catalogue::TableVersion version;
    const char* const end = SMBiosVersion.data() + SMBiosVersion.size();
    const char* const point = std::from_chars(SMBiosVersion.data(), end, version.Major).ptr;
    std::from_chars(point + 1, end, version.Minor);
    TypeTables = Catalogue::NewestTables(version);
}

void SMBIOSProtocolImpl::DefineValidSubTypes()
{
    ValidSubTypes = {
        {4, {"L1CacheHandle", "L2CacheHandle", "L3CacheHandle"}},
        {16, {"MemoryErrorInfoHandle"}},
        {17, {"MemoryErrorInfoHandle"}},
    };
}

// The types are visited in this order wherever all of them are: a tree is the same on every platform,
// whatever the order of its hash map.
std::vector<unsigned char> SMBIOSProtocolImpl::CataloguedTypes() const
{
    std::vector<unsigned char> types;
    for (const auto& [type, table] : TypeTables)
        types.push_back(type);
    std::sort(types.begin(), types.end());
    return types;
}

} // namespace Protocol::SMBIOS
