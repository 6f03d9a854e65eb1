// From raw structures to nodes. The catalogue's fields are laid over a structure one behind the other, from
// the end of its header on; neither the structure's length byte nor any count in it takes part. A structure
// shorter than its list of fields is read on past its end, into its strings and whatever follows, up to the
// end of the table.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace Protocol::SMBIOS {

namespace {

constexpr std::size_t HeaderSize = 4;
constexpr int StringReference = 17; ///< width of a field that is one byte, a string number
constexpr std::size_t MaxTextLength = 254;

std::ptrdiff_t SizeOf(const SMBField& field)
{
    return field.Width == StringReference ? 1 : field.Width;
}

// The string with this number, empty where the structure has none.
std::string_view StringOf(const SMBiosStructure& structure, unsigned char number)
{
    if (number == 0 || number > structure.Strings.size())
        return {};
    return std::string_view(structure.Strings[number - 1]).substr(0, MaxTextLength);
}

// The handle in a handle field, 0 where it names no structure.
int LinkedHandleOf(std::string_view value)
{
    int handle = 0;
    std::from_chars(value.data(), value.data() + value.size(), handle);
    return handle == 0xFFFF || handle == 0xFFFE ? 0 : handle;
}

std::string HandleText(int handle)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%04X", static_cast<unsigned int>(handle));
    return text;
}

} // namespace

// Decodes structures of `type` below the node at `path`: all of them where `handle` is 0, each indexed one
// below a node of its own; else those with this handle, all directly below `path`.
const SMBTable& SMBIOSProtocolImpl::SMBiosDataTable(std::string_view path, int type, int handle)
{
    const SMBTable& table = TypeTables.at(static_cast<unsigned char>(type));
    TreeNode& top = NodeAt(path);

    if (handle == 0) {
        if (table.Indexed)
            top.Children.reserve(table.Instances.size());
        for (std::size_t i = 0; i < table.Instances.size(); ++i)
            DecodeFields(table, table.Instances[i], type, table.Indexed ? AddInstance(top, i + 1) : top);
        return table;
    }

    const auto byHandle = [&](std::size_t position, int wanted) {
        return table.Instances[position].Handle < wanted;
    };
    auto position =
        std::lower_bound(table.InstancesByHandle.begin(), table.InstancesByHandle.end(), handle, byHandle);
    for (; position != table.InstancesByHandle.end() && table.Instances[*position].Handle == handle;
         ++position) {
        AddLeaf(top, "Handle", HandleText(handle));
        DecodeFields(table, table.Instances[*position], type, top);
    }
    return table;
}

// Decodes the fields of one structure below `node`, up to the first that would leave the table.
void SMBIOSProtocolImpl::DecodeFields(const SMBTable& table, const SMBiosStructure& structure, int type,
                                      TreeNode& node)
{
    const unsigned char* const end = TableBase + TableLength;
    const unsigned char* cursor = structure.Data + HeaderSize;
    char buffer[256];
    if (node.Children.empty())
        node.Children.reserve(table.Fields.size());

    for (const SMBField& field : table.Fields) {
        if (end - cursor < SizeOf(field))
            return;
        std::string_view value;
        if (field.Width == StringReference) {
            value = StringOf(structure, *cursor);
        } else {
            ExtractField(reinterpret_cast<const char*>(cursor), buffer,
                         static_cast<unsigned char>(field.Width), field.Interpretation);
            value = buffer;
        }
        cursor += SizeOf(field);

        TreeNode& fieldNode = ListChild(node, "/", field.Name);
        if (table.ValueTables.count(field.Name) != 0) {
            FillFieldInterpretation(fieldNode.Path, field.Name, value, table.ValueTables);
            continue;
        }
        const int linkedHandle = IsHandleField(type, field.Name) ? LinkedHandleOf(value) : 0;
        if (linkedHandle != 0) {
            SubTypeLinks.push_back(
                {type, std::string(field.Name), std::string(fieldNode.Path), linkedHandle});
            Overwrite(fieldNode, NODE_INNER);
        } else {
            Overwrite(fieldNode, NODE_LEAF, value);
        }
    }
}

bool SMBIOSProtocolImpl::IsHandleField(int type, std::string_view name) const
{
    const auto fields = ValidSubTypes.find(type);
    return fields != ValidSubTypes.end() &&
           std::find(fields->second.begin(), fields->second.end(), name) != fields->second.end();
}

} // namespace Protocol::SMBIOS
