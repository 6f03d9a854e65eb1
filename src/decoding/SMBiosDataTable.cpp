// From raw structures to nodes. By version, the catalogue's fields are laid over a structure one behind the
// other, from the end of its header on; neither the structure's length byte nor any count in it takes part. A
// structure shorter than its list of fields is read on past its end, into its strings and whatever follows,
// up to the end of the table. How the newest catalogue reads one, DecodeSections.cpp says.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

#include <algorithm>
#include <charconv>

namespace Protocol::SMBIOS {

namespace {

constexpr std::size_t HeaderSize = 4;
constexpr int StringReference = 17; ///< width of a field that is one byte, a string number
constexpr std::size_t MaxTextLength = 254;

std::ptrdiff_t SizeOf(const SMBField& field)
{
    return field.Width == StringReference ? 1 : field.Width;
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
    static constexpr char Digits[] = "0123456789ABCDEF";
    std::string text = "0x";
    for (int shift = 12; shift >= 0; shift -= 4)
        text += Digits[handle >> shift & 0xF];
    return text;
}

} // namespace

// Decodes structures of `type` below the node at `path`: all of them where `handle` is 0, each indexed one
// below a node of its own; else those with this handle, all directly below `path`.
const SMBTable& SMBIOSProtocolImpl::SMBiosDataTable(std::string_view path, int type, int handle)
{
    const SMBTable& table = TypeTables.at(static_cast<unsigned char>(type));
    TreeNode& top = NodeAt(path);
    const bool isNewest = !table.Definition->Sections.empty();
    const auto decode = [&](const SMBiosStructure& structure, TreeNode& node) {
        if (isNewest || handle != 0)
            AddLeaf(node, "Handle", HandleText(structure.Handle));
        if (isNewest)
            DecodeSections(table, structure, node);
        else
            DecodeFields(table, structure, type, node);
    };

    if (handle == 0) {
        for (std::size_t i = 0; i < table.Instances.size(); ++i) {
            const bool hasOwnNode = table.Definition->Indexed || (isNewest && i > 0);
            decode(table.Instances[i], hasOwnNode ? AddInstance(top, i + 1) : top);
        }
        return table;
    }

    const auto byHandle = [&](std::size_t position, int wanted) {
        return table.Instances[position].Handle < wanted;
    };
    auto position =
        std::lower_bound(table.InstancesByHandle.begin(), table.InstancesByHandle.end(), handle, byHandle);
    for (; position != table.InstancesByHandle.end() && table.Instances[*position].Handle == handle;
         ++position)
        decode(table.Instances[*position], top);
    return table;
}

// Decodes the fields of one structure below `node`, up to the first that would leave the table.
void SMBIOSProtocolImpl::DecodeFields(const SMBTable& table, const SMBiosStructure& structure, int type,
                                      TreeNode& node)
{
    const unsigned char* const end = TableBase + TableLength;
    const unsigned char* cursor = structure.Data + HeaderSize;
    char buffer[256];

    for (const SMBField& field : table.Definition->Fields) {
        if (end - cursor < SizeOf(field))
            return;
        std::string_view value;
        if (field.Width == StringReference) {
            value = structure.StringAt(*cursor).substr(0, MaxTextLength);
        } else {
            ExtractField(reinterpret_cast<const char*>(cursor), buffer,
                         static_cast<unsigned char>(field.Width), field.Interpretation);
            value = buffer;
        }
        cursor += SizeOf(field);

        if (field.Values != nullptr)
            FillFieldInterpretation(ListChild(node, "/", field.Name), value, *field.Values);
        else
            StorePlain(node, field.Name, value, type);
    }
}

// Stores a field without texts of its own below `node`: a link to follow, or a leaf.
void SMBIOSProtocolImpl::StorePlain(TreeNode& node, std::string_view name, std::string_view value, int type)
{
    TreeNode& fieldNode = ListChild(node, "/", name);
    const int linkedHandle = IsHandleField(type, name) ? LinkedHandleOf(value) : 0;
    if (linkedHandle != 0) {
        SubTypeLinks.push_back({type, name, fieldNode.Path, linkedHandle});
        Overwrite(fieldNode, NODE_INNER);
    } else {
        InsertLeafXNode(value, fieldNode);
    }
}

bool SMBIOSProtocolImpl::IsHandleField(int type, std::string_view name) const
{
    const auto fields = ValidSubTypes.find(type);
    return fields != ValidSubTypes.end() &&
           std::find(fields->second.begin(), fields->second.end(), name) != fields->second.end();
}

} // namespace Protocol::SMBIOS
