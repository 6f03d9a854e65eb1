// From a field's text to words. The kind of the field's value table, and not the field's name, chooses the
// reading.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "catalogue/ValueTable.h"
#include "decoding/HexNumber.h"
#include "tree/NodeStore.h"

#include <charconv>

namespace Protocol::SMBIOS {

using Catalogue::TableKind;

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

// The text of a value. A value without a row reads as empty text by version, and as its number with the
// newest catalogue.
std::string_view TextOf(unsigned long long value, const ValueTable& table, NodeStore& nodes)
{
    const std::string_view text = table.Text(value);
    const int digits = table.DigitsWithoutRow();
    return text.data() != nullptr || digits == 0 ? text : nodes.Keep(HexNumber(value, digits));
}

// A processor's family keeps its number beside the text, in a node that no other lists.
void InterpretEnumeration(NodeStore& nodes, TreeNode& node, std::string_view value, std::string_view text)
{
    nodes.Overwrite(node, NODE_LEAF, text);
    if (node.Path.find("ProcessorFamily") != std::string_view::npos) {
        TreeNode& number = nodes.At(std::string(node.Path) + "_Raw");
        nodes.Overwrite(number, NODE_LEAF, nodes.Keep(value));
        number.ParentSize = node.ParentSize;
    }
}

// One leaf for each reported bit, set or not, from the lowest up.
void InterpretBits(NodeStore& nodes, TreeNode& node, unsigned long long number, const ValueTable& table)
{
    nodes.Overwrite(node, NODE_INNER);
    table.ForEachRow([&](const Catalogue::Row& bit) {
        const bool isSet = bit.Value < 32 && (number >> bit.Value & 1U) != 0;
        nodes.Overwrite(nodes.ListChild(node, "/", bit.Text), NODE_LEAF,
                        isSet ? "Supported" : "Not Supported");
    });
}

} // namespace

// Stores all nodes of the field at `node`, which its structure already lists.
void SMBIOSProtocolImpl::FillFieldInterpretation(TreeNode& node, std::string_view value,
                                                 const ValueTable& table)
{
    const unsigned long long number = NumberOf(value);
    const int low = static_cast<int>(static_cast<unsigned int>(number));

    switch (table.Kind()) {
    case TableKind::None:
    case TableKind::Packed:
        return;
    case TableKind::Bits:
        return InterpretBits(*ResultNodes, node, number, table);
    case TableKind::Enumeration:
        return InterpretEnumeration(*ResultNodes, node, value,
                                    TextOf(number & 0xFFFFFFFF, table, *ResultNodes));
    case TableKind::MaskedEnumeration:
        return ResultNodes->Overwrite(node, NODE_LEAF, TextOf(number & 0x7F, table, *ResultNodes));
    case TableKind::BIOSRomSize:
        return InsertLeafXNode(CalculateBIOSRomSize(low), node);
    case TableKind::VoltageCapability:
        return InsertLeafXNode(CalculateProcessorVoltage(low, table), node);
    case TableKind::Flags:
        return InsertLeafXNode(CalculateFlag(low, table), node);
    case TableKind::IPMISpecRev:
        return InsertLeafXNode(CalculateIPMISpecRev(low), node);
    case TableKind::UUID:
        return InsertLeafXNode(interpretUUID(value), node);
    case TableKind::Status:
        CalculateProcessorStatus(low, table, node);
        return;
    case TableKind::CacheSize:
        CalculateCacheSize(low, table, node);
        return;
    case TableKind::CacheConfiguration:
        CalculateCacheConfiguration(low, table, node);
        return;
    case TableKind::HardwareSecuritySettings:
        CalculateHardwareSecuritySettings(low, table, node);
    }
}

} // namespace Protocol::SMBIOS
