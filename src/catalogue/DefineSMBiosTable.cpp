// From the version of the table to its catalogue.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "catalogue/Catalogue.h"
#include "services/Failure.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace Protocol::SMBIOS {

namespace {

// The numbers of a text such as "2.7".
Catalogue::TableVersion VersionIn(const std::string& text)
{
    Catalogue::TableVersion version;
    const char* const end = text.data() + text.size();
    const char* const point = std::from_chars(text.data(), end, version.Major).ptr;
    std::from_chars(point + 1, end, version.Minor);
    return version;
}

} // namespace

void SMBIOSProtocolImpl::DefineSMBiosTable()
{
    if (HowRead == Reading::Newest) {
        TypeTables = Catalogue::TablesOf(Catalogue::Newest, VersionIn(SMBiosVersion));
        return;
    }

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

void SMBIOSProtocolImpl::DefineValidSubTypes()
{
    ValidSubTypes = {
        {4, {"L1CacheHandle", "L2CacheHandle", "L3CacheHandle"}},
        {16, {"MemoryErrorInfoHandle"}},
        {17, {"MemoryErrorInfoHandle"}},
    };
}

} // namespace Protocol::SMBIOS
