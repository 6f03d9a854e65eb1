#include "SMBIOSProtocol/SMBTable.h"

#include <algorithm>
#include <iterator>

namespace Protocol::SMBIOS {

namespace {

// Any other header is a text of 0 and 1.
constexpr struct {
    std::string_view Header;
    ValueForm Form;
} Forms[] = {
    {"ENUM", ValueForm::Enumeration},
    {"ENUM_MASK", ValueForm::MaskedEnumeration},
    {"BIOSRomSize", ValueForm::BiosRomSize},
    {"Status", ValueForm::ProcessorStatus},
    {"VoltageCapability", ValueForm::VoltageCapability},
    {"CacheSize", ValueForm::CacheSize},
    {"CacheConfiguration", ValueForm::CacheConfiguration},
    {"Flags", ValueForm::Flags},
    {"HardwareSecuritySettings", ValueForm::HardwareSecuritySettings},
    {"IPMISpecRev", ValueForm::IpmiSpecRev},
    {"UUID", ValueForm::Uuid},
};

ValueForm FormOf(std::string_view header)
{
    const auto* const form = std::find_if(std::begin(Forms), std::end(Forms),
                                          [&](const auto& each) { return each.Header == header; });
    return form == std::end(Forms) ? ValueForm::Bits : form->Form;
}

} // namespace

ValueTable::ValueTable(std::string header) : HeaderText(std::move(header)), HeaderForm(FormOf(HeaderText)) {}

std::string_view ValueTable::Text(int key) const
{
    const auto row = std::lower_bound(RowsByKey.begin(), RowsByKey.end(), key,
                                      [](const Row& each, int wanted) { return each.Key < wanted; });
    return row != RowsByKey.end() && row->Key == key ? row->Text : std::string_view();
}

} // namespace Protocol::SMBIOS
