#include "Look.h"

#include "Properties.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Properties {

namespace {

using Images::Bytes;
using Protocol::SMBIOS::NodeView;

/// The fields that name another structure by its handle, which is then decoded below them.
constexpr std::string_view LinkNames[] = {"L1CacheHandle", "L2CacheHandle", "L3CacheHandle",
                                          "MemoryErrorInfoHandle"};

// The structures of a table, by a walk that owes nothing to the library's, and what the tree makes of them.
class Structures {
public:
    Structures(const SMBIOSProtocolImpl& object, const Bytes& table, bool isNewest)
        : Object(object), Newest(isNewest), Known(!table.empty())
    {
        for (std::size_t at = 0, next = 0; (next = EndOf(table, at)) != 0; at = next) {
            const unsigned int type = table[at], handle = table[at + 2] | table[at + 3] * 256U;
            if (!Object.Find(Path(type)))
                continue;
            AreDistinct =
                ByHandle.insert_or_assign(handle, Structure{type, ++Counts[type]}).second && AreDistinct;
            if (type == PhysicalMemoryArray)
                Arrays.push_back(handle);
        }
    }

    void CheckCounts() const
    {
        for (const auto& [type, count] : Counts) {
            const std::string path = Path(type);
            const bool isIndexed = Object.Find(path + "[1]") || Object.Find(path + "[2]");
            Require(!Known || !isIndexed || (NodeOf({type, count}) && !NodeOf({type, count + 1})),
                    "each structure has its node");
        }
    }

    void CheckArrays() const
    {
        for (std::size_t n = 0; Known && n < Arrays.size(); ++n) {
            const NodeView list =
                Object.Find("/SMBIOS/MemoryArray[" + std::to_string(n + 1) + "]/MemoryDevice");
            Require(static_cast<bool>(list), "each array is in the inventory");
            for (const NodeView device : list.DistinctChildren())
                Require(Below(device, "/MemoryArrayHandle").Value() == std::to_string(Arrays[n]),
                        "an array has the devices that name its handle");
        }
    }

    void CheckLink(NodeView link, std::string_view handle) const
    {
        if (!Known)
            return;
        const auto last =
            ByHandle.find(static_cast<unsigned int>(std::stoul(std::string(handle), nullptr, 16)));
        Require(last != ByHandle.end(), "a link leads to a structure");
        const NodeView node = NodeOf(last->second);
        if (!node)
            return;
        for (const NodeView field : node.DistinctChildren()) {
            if (!field.IsLeaf() || field.Name() == "SPD_RAW")
                continue;
            const NodeView same = Below(link, field.Path().substr(node.Path().size()));
            Require(same && same.IsLeaf() && same.Value() == field.Value(),
                    "a link leads to the last structure of its handle");
        }
    }

    /// Whether each handle is known to be that of one structure.
    bool HaveDistinctHandles() const { return Known && AreDistinct; }

private:
    static constexpr unsigned int PhysicalMemoryArray = 16;

    struct Structure {
        unsigned int Type;
        unsigned int Number; ///< among those of its type, from 1
    };

    // Where the structure at an offset ends; 0 where none is. By version, a text longer than 255 bytes falls
    // apart: then nothing is known.
    std::size_t EndOf(const Bytes& table, std::size_t at)
    {
        constexpr unsigned int HeaderSize = 4, EndOfTable = 127, LongestText = 255;
        if (at + HeaderSize > table.size() || table[at] == EndOfTable ||
            (Newest && table[at + 1] < HeaderSize))
            return 0;
        std::size_t text = 0;
        for (std::size_t i = at + table[at + 1]; i + 1 < table.size(); ++i) {
            if (table[i] == 0 && table[i + 1] == 0)
                return i + 2;
            text = table[i] == 0 ? 0 : text + 1;
            Known = Known && (Newest || text <= LongestText);
        }
        return 0;
    }

    static std::string Path(unsigned int type) { return "/SMBIOS/Type" + std::to_string(type); }

    NodeView Below(NodeView node, std::string_view path) const
    {
        return Object.Find(std::string(node.Path()).append(path));
    }

    // Without an index, a type's node is that of the only one, and of the newest catalogue's first.
    NodeView NodeOf(const Structure& structure) const
    {
        const std::string path = Path(structure.Type);
        const NodeView indexed = Object.Find(path + "[" + std::to_string(structure.Number) + "]");
        const bool isAlone = Newest || Counts.at(structure.Type) == 1;
        return !indexed && isAlone && structure.Number == 1 ? Object.Find(path) : indexed;
    }

    const SMBIOSProtocolImpl& Object;
    bool Newest;
    bool Known;
    bool AreDistinct = true;
    std::map<unsigned int, Structure> ByHandle;  ///< the last of each
    std::map<unsigned int, unsigned int> Counts; ///< by type
    std::vector<unsigned int> Arrays;            ///< their handles
};

class Nodes {
public:
    Nodes(const SMBIOSProtocolImpl& object, const Structures& structures) : Object(object), Table(structures)
    {
        LookAt(Object.Find("/SMBIOS"));
    }

    std::size_t Count = 0;

private:
    void LookAt(NodeView node) // NOLINT(misc-no-recursion)
    {
        ++Count;
        Require(node && Object.Find(node.Path()) == node, "a listed path has a node");
        if (node.IsLeaf()) {
            Require(node.Value().find('\0') == std::string_view::npos, "a text has no NUL");
            return;
        }
        const bool isLink =
            std::find(std::begin(LinkNames), std::end(LinkNames), node.Name()) != std::end(LinkNames) &&
            !node.Children().empty();
        if (isLink)
            Enter(node, node.Children()[0]);
        for (const NodeView child : node.DistinctChildren()) {
            Require(child.Path().size() > node.Path().size() &&
                        child.Path().substr(0, node.Path().size()) == node.Path(),
                    "a child's path begins with its parent's");
            LookAt(child);
        }
        if (isLink)
            Way.pop_back();
    }

    void Enter(NodeView link, NodeView first)
    {
        constexpr std::size_t MostLinks = 4;
        const std::string_view handle = first.Value();
        Require(first.Name() == "Handle", "what a link leads to begins with its handle");
        Require(Way.size() < MostLinks, "at most four links are followed one behind the other");
        Require(!Table.HaveDistinctHandles() || std::find(Way.begin(), Way.end(), handle) == Way.end(),
                "the handles along a way differ");
        Table.CheckLink(link, handle);
        Way.push_back(handle);
    }

    const SMBIOSProtocolImpl& Object;
    const Structures& Table;
    std::vector<std::string_view> Way; ///< the handles of the links down to here
};

} // namespace

std::size_t Look(const SMBIOSProtocolImpl& object, const Bytes& table, bool isNewest)
{
    const Structures structures(object, table, isNewest);
    structures.CheckCounts();
    structures.CheckArrays();
    return Nodes(object, structures).Count;
}

} // namespace Properties
