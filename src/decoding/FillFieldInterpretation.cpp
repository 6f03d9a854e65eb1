// From a field's text to words. The header of the field's value table, and not the field's name, chooses the
// reading.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

#include <charconv>

namespace Protocol::SMBIOS {

namespace {

// The 64 bits of a decimal text, which may have a sign.
unsigned long long NumberOf(std::string_view text)
{
    const bool isNegative = !text.empty() && text.front() == '-';
    if (isNegative)
        text.remove_prefix(1);
    unsigned long long number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return isNegative ? 0 - number : number;
}

} // namespace

// Stores all nodes of the field `name`, whose path its structure already lists.
void SMBIOSProtocolImpl::FillFieldInterpretation(std::string_view path, std::string_view name,
                                                 std::string_view value, const ValueTableMap& tables)
{
    const ValueTable& table = tables.at(name);
    const std::string& header = table.Header();
    const unsigned long long number = NumberOf(value);
    const int low = static_cast<int>(static_cast<unsigned int>(number));

    if (header == "ENUM")
        InterpretEnumeration(path, value, table.Text(low + 1));
    else if (header == "ENUM_MASK")
        InsertLeafXNode(table.Text((low & 0x7F) + 1), path);
    else if (header == "BIOSRomSize")
        InsertLeafXNode(CalculateBIOSRomSize(low), path);
    else if (header == "Status")
        CalculateProcessorStatus(low, table, path);
    else if (header == "VoltageCapability")
        InsertLeafXNode(CalculateProcessorVoltage(low, table), path);
    else if (header == "CacheSize")
        CalculateCacheSize(low, table, path);
    else if (header == "CacheConfiguration")
        CalculateCacheConfiguration(low, table, path);
    else if (header == "Flags")
        InsertLeafXNode(CalculateFlag(low, table), path);
    else if (header == "HardwareSecuritySettings")
        CalculateHardwareSecuritySettings(low, table, path);
    else if (header == "IPMISpecRev")
        InsertLeafXNode(CalculateIPMISpecRev(low), path);
    else if (header == "UUID")
        InsertLeafXNode(interpretUUID(value), path);
    else
        InterpretBits(number, table, path);
}

// A value without a row reads as empty text. A processor's family keeps its number beside the text, in a node
// that no other lists.
void SMBIOSProtocolImpl::InterpretEnumeration(std::string_view path, std::string_view value,
                                              std::string_view text)
{
    InsertLeafXNode(text, path);
    if (path.find("ProcessorFamily") != std::string_view::npos)
        InsertLeafXNode(value, std::string(path).append("_Raw"));
}

// One leaf for each reported bit, set or not, from the lowest up.
void SMBIOSProtocolImpl::InterpretBits(unsigned long long value, const ValueTable& table,
                                       std::string_view path)
{
    TreeNode& node = StoreInner(path);
    const auto bits = static_cast<unsigned int>(value);
    const std::string& reported = table.Header();
    std::size_t row = 0;
    node.Children.reserve(table.Rows().size());
    for (std::size_t bit = 0; bit < reported.size(); ++bit) {
        if (reported[bit] != '1')
            continue;
        const bool isSet = bit < 32 && (bits >> bit & 1U) != 0;
        AddLeaf(node, table.Rows()[row++].Text, isSet ? "Supported" : "Not Supported");
    }
}

} // namespace Protocol::SMBIOS
