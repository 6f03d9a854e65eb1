// From a field's text to words. The form of the field's value table, and not the field's name, chooses the
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

// Stores all nodes of the field at `node`, which its structure already lists.
void SMBIOSProtocolImpl::FillFieldInterpretation(TreeNode& node, std::string_view value,
                                                 const ValueTable& table)
{
    const unsigned long long number = NumberOf(value);
    const int low = static_cast<int>(static_cast<unsigned int>(number));

    switch (table.Form()) {
    case ValueForm::Bits:
        InterpretBits(number, table, node);
        break;
    case ValueForm::Enumeration:
        InterpretEnumeration(node, value, table.Text(low + 1));
        break;
    case ValueForm::MaskedEnumeration:
        Overwrite(node, NODE_LEAF, table.Text((low & 0x7F) + 1));
        break;
    case ValueForm::BiosRomSize:
        InsertLeafXNode(CalculateBIOSRomSize(low), node);
        break;
    case ValueForm::ProcessorStatus:
        CalculateProcessorStatus(low, table, node);
        break;
    case ValueForm::VoltageCapability:
        InsertLeafXNode(CalculateProcessorVoltage(low, table), node);
        break;
    case ValueForm::CacheSize:
        CalculateCacheSize(low, table, node);
        break;
    case ValueForm::CacheConfiguration:
        CalculateCacheConfiguration(low, table, node);
        break;
    case ValueForm::Flags:
        InsertLeafXNode(CalculateFlag(low, table), node);
        break;
    case ValueForm::HardwareSecuritySettings:
        CalculateHardwareSecuritySettings(low, table, node);
        break;
    case ValueForm::IpmiSpecRev:
        InsertLeafXNode(CalculateIPMISpecRev(low), node);
        break;
    case ValueForm::Uuid:
        InsertLeafXNode(interpretUUID(value), node);
        break;
    }
}

// A value without a row reads as empty text. A processor's family keeps its number beside the text, in a node
// that no other lists.
void SMBIOSProtocolImpl::InterpretEnumeration(TreeNode& node, std::string_view value, std::string_view text)
{
    Overwrite(node, NODE_LEAF, text);
    if (node.Path.find("ProcessorFamily") != std::string_view::npos) {
        TreeNode& number = NodeAt(node.Path, "_Raw");
        InsertLeafXNode(value, number);
        number.ParentSize = node.ParentSize;
    }
}

// One leaf for each reported bit, set or not, from the lowest up.
void SMBIOSProtocolImpl::InterpretBits(unsigned long long value, const ValueTable& table, TreeNode& node)
{
    Overwrite(node, NODE_INNER);
    const auto bits = static_cast<unsigned int>(value);
    const std::string& reported = table.Header();
    std::size_t row = 0;
    for (std::size_t bit = 0; bit < reported.size(); ++bit) {
        if (reported[bit] != '1')
            continue;
        const bool isSet = bit < 32 && (bits >> bit & 1U) != 0;
        AddWord(node, table.Rows()[row++].Text, isSet ? "Supported" : "Not Supported");
    }
}

} // namespace Protocol::SMBIOS
