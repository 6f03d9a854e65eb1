#include "Properties.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <map>
#include <numeric>
#include <set>
#include <string_view>
#include <vector>

namespace Properties {

namespace {

using FakeSystem::Machine;
using FakeSystem::SegmentLength;
using Images::Bytes;
using Protocol::SMBIOS::NodeView;
using Protocol::SMBIOS::Reading;
using Protocol::SMBIOS::TableImage;

enum Route : unsigned int { Image = 0, WithNewest = 1, Block = 2, Segment = 3 };

/// What costs many times a construction and a look. The fuzzer does each with one input of so many.
enum Thorough : std::size_t { Subtrees, Copies, SecondReading, OtherRoute };
constexpr std::size_t InputsForEach = 256;

/// Beyond them, subtrees and copies are not compared, and nothing else either: that would cost more than it
/// finds.
constexpr std::size_t LargestSmallTree = 1'000;
constexpr std::size_t LargestThoroughTree = 3'000;

/// The fields that name another structure by its handle, which is then decoded below them.
constexpr std::string_view LinkNames[] = {"L1CacheHandle", "L2CacheHandle", "L3CacheHandle",
                                          "MemoryErrorInfoHandle"};

void Require(bool holds, const char* property)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", property);
    std::abort();
}

ObjectOwner ReadWithNewest(const TableImage& table)
{
    return std::make_unique<SMBIOSProtocolImpl>(table, Reading::Newest);
}

// Null where the bytes are refused. Nothing may be thrown but what the library promises.
ObjectOwner TryMake(const std::function<ObjectOwner()>& make)
{
    try {
        return make();
    } catch (const ResultStatus& failure) {
        Require(!failure.Message().empty() && failure.Message() == failure.what(), "a failure has a text");
    } catch (const Protocol::SMBIOS::TreeTooLarge&) {
    }
    return nullptr;
}

ObjectOwner TryMakeLive(const Machine& machine)
{
    FakeSystem::TheMachine = machine;
    ObjectOwner object = TryMake(FakeSystem::NewLiveObject);
    Require(FakeSystem::TheMachine.Locks == 0, "no lock stays behind");
    return object;
}

bool IsBlock(std::string_view path)
{
    return path.find("/SPD_RAW") != std::string_view::npos;
}

// A tree without what a live object alone reads.
SearchResult WithoutBlocks(SearchResult tree)
{
    for (auto node = tree.begin(); node != tree.end();) {
        std::vector<std::string>& items = node->second.Items;
        if (node->second.NodeType == NODE_INNER)
            items.erase(std::remove_if(items.begin(), items.end(), IsBlock), items.end());
        node = IsBlock(node->first) ? tree.erase(node) : std::next(node);
    }
    return tree;
}

// A view shows what the search copied.
void CheckView(const SMBIOSProtocolImpl& object, const std::string& path, const _XNode& node)
{
    const NodeView view = object.Find(path);
    Require(view && view.Path() == path && view.IsLeaf() == (node.NodeType == NODE_LEAF),
            "a view shows its node");
    Require(node.Attributes.empty() && node.Flag == 0, "attributes and flag are not used");
    std::vector<std::string> items, distinct, expected;
    std::set<std::string_view> seen;
    if (view.IsLeaf())
        items.emplace_back(view.Value());
    for (const auto child : view.Children()) {
        items.emplace_back(child.Path());
        const std::string_view name = child.Path().substr(path.size());
        Require(child.Name() == name.substr(name.front() == '/' ? 1 : 0),
                "a name is what the parent's path has not");
        if (seen.insert(child.Path()).second)
            expected.emplace_back(child.Path());
    }
    for (const auto child : view.DistinctChildren())
        distinct.emplace_back(child.Path());
    Require(items == node.Items, "a view lists what its node lists");
    Require(distinct == expected, "distinct children stand where they were listed first");
}

// A class derived from the library's, which sees each descent of a search.
class Spy : public SMBIOSProtocolImpl {
public:
    explicit Spy(SMBIOSProtocolImpl& source) : SMBIOSProtocolImpl(source) {}

    void SMBiosSearch(std::string path, SearchResult& results) override
    {
        ++Calls;
        SMBIOSProtocolImpl::SMBiosSearch(std::move(path), results);
    }

    std::size_t Calls = 0;
};

// A search gives the nodes of the whole tree whose paths continue the path asked for.
void CheckSubtrees(SMBIOSProtocolImpl& object, const SearchResult& tree)
{
    Spy spy(object);
    Require(AreEqual(Everything(spy), tree), "a derived class finds the same");
    Require(spy.Calls == tree.size(), "a derived class sees each node once");
    for (auto top = tree.begin(); top != tree.end(); ++top) {
        const std::string& path = top->first;
        CheckView(object, path, top->second);
        const SearchResult found = Everything(object, path);
        SearchResult expected;
        for (auto node = top; node != tree.end() && node->first.compare(0, path.size(), path) == 0; ++node) {
            const char next = node->first[path.size()]; // of a string, the NUL behind its end too
            if (next == '\0' || next == '/' || next == '[')
                expected.insert(*node);
        }
        Require(AreEqual(found, expected), "a search gives the part of the whole that it names, and no more");
    }
}

std::pair<unsigned int, unsigned int> ReservedMemory(SMBIOSProtocolImpl& object)
{
    unsigned int address = 1, size = 1;
    object.GetBiosReservedMem(&address, &size);
    return {address, size};
}

// Copies share what the last of them releases, here in each order.
void CheckCopies(SMBIOSProtocolImpl& object, const SearchResult& tree, const ObjectOwner& other)
{
    const auto reserved = ReservedMemory(object);
    for (std::size_t first = 0; first < 3; ++first) {
        std::vector<ObjectOwner> copies;
        copies.push_back(std::make_unique<SMBIOSProtocolImpl>(object));
        copies.push_back(std::make_unique<SMBIOSProtocolImpl>(*copies[0]));
        copies.push_back(std::make_unique<SMBIOSProtocolImpl>(*other));
        Require(&(*copies[2] = *copies[1]) == copies[2].get(), "an assignment gives its target");
        // cppcheck-suppress selfAssignment ; it is one of the things that must do no harm
        *copies[2] = *copies[2];
        std::rotate(copies.begin(), copies.begin() + static_cast<std::ptrdiff_t>(first), copies.end());
        while (!copies.empty()) {
            Require(AreEqual(Everything(*copies.back()), tree), "a copy equals its source");
            Require(ReservedMemory(*copies.back()) == reserved, "a copy has its source's reserved memory");
            copies.pop_back();
        }
    }
    Require(AreEqual(Everything(object), tree), "a source outlives its copies");
}

Machine MachineOfSegment(const unsigned char* data, std::size_t size, unsigned int failing)
{
    constexpr std::size_t TableOffset = 32, LongestEntryPoint = 255, SizeWithTable = 28;
    Machine machine;
    machine.FailingMap = failing;
    const std::size_t start = size < 2 ? 0 : static_cast<std::size_t>(data[0] | data[1] << 8) % SegmentLength;
    const Bytes rest(data + std::min<std::size_t>(size, 2), data + size);
    Bytes& segment = machine.Memory[FakeSystem::SegmentAddress + start] = rest;
    segment.resize(std::min(rest.size() + LongestEntryPoint, SegmentLength - start), 0xFF);
    for (std::size_t at = -start % 4; at + SizeWithTable <= segment.size(); at += 4) {
        unsigned char* const anchor = &segment[at];
        if (!std::equal(anchor, anchor + 4, "_SM_"))
            continue;
        const std::size_t summed = std::min<std::size_t>(anchor[5], segment.size() - at);
        anchor[4] = static_cast<unsigned char>(anchor[4] - std::accumulate(anchor, anchor + summed, 0U));
        const auto address = static_cast<std::uint32_t>(anchor[24] | anchor[25] << 8 | anchor[26] << 16) |
                             static_cast<std::uint32_t>(anchor[27]) << 24;
        const auto table = static_cast<std::ptrdiff_t>(std::min(rest.size(), TableOffset));
        machine.Memory[address].assign(rest.begin() + table, rest.end());
        break;
    }
    return machine;
}

// What an input stands for: an object, by its route.
struct Subject {
    Subject(const unsigned char* data, std::size_t size, unsigned int control)
        : Kind(Route(control & 3U)), Raw(data, data + size)
    {
        if (Kind == Segment)
            Live = MachineOfSegment(data, size, control >> 4);
        if (Kind == Block) {
            Live.Block = Raw;
            Live.QueriedSize = control >> 4 == 0 ? 0 : size + std::size_t{16} * (control >> 4);
        }
    }

    ObjectOwner Make() const
    {
        if (Kind == Block || Kind == Segment)
            return TryMakeLive(Live);
        if (Kind == WithNewest)
            return TryMake([this] { return ReadWithNewest(TableImage::FromBytes(Raw)); });
        return TryMake([this] { return Decoded(Raw); });
    }

    // The structures of a table that is accepted; nothing for a segment, where the machine's memory has them.
    Bytes Table() const
    {
        if (Kind == Image)
            return Raw;
        if (Kind == WithNewest)
            return TableImage::FromBytes(Raw).Table();
        if (Kind == Segment)
            return {};
        constexpr std::size_t HeaderSize = 8;
        Bytes block(Raw);
        block.resize(std::max<std::size_t>(block.size(), Live.QueriedSize)); // zeros behind the truth
        const std::size_t length = std::min<std::size_t>(static_cast<std::size_t>(block[4] | block[5] << 8),
                                                         block.size() - HeaderSize);
        return {block.data() + HeaderSize, block.data() + HeaderSize + length};
    }

    // Whether the bytes begin with an entry point, behind which a TableImage finds the table.
    bool IsDump() const { return Raw.size() >= 3 && std::equal(&Raw[0], &Raw[3], "_SM"); }

    // The table on another route; nothing for a segment, whose table the machine's memory has.
    std::vector<Machine> Others() const
    {
        if (Kind == Segment || Kind == WithNewest)
            return {};
        if (Kind == Block)
            return {Machine::WithEntryPoint(Table(), Raw[1], Raw[2])};
        constexpr std::string_view Anchor = "_SM_";
        const auto entry = std::search(Raw.begin(), Raw.end(), Anchor.begin(), Anchor.end());
        return {Machine::WithBlock(Raw, entry[6], entry[7]),
                Machine::WithEntryPoint(Raw, entry[6], entry[7])};
    }

    Route Kind;
    Bytes Raw;
    Machine Live;
};

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
            if (!field.IsLeaf() || IsBlock(field.Path()))
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

// One look at each node.
class Look {
public:
    Look(const SMBIOSProtocolImpl& object, const Structures& structures) : Object(object), Table(structures)
    {
        At(Object.Find("/SMBIOS"));
    }

    std::size_t Size = 0;

private:
    void At(NodeView node) // NOLINT(misc-no-recursion)
    {
        ++Size;
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
            At(child);
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

void CheckOthers(const Subject& subject, const SearchResult& tree)
{
    for (const Machine& machine : subject.Others()) {
        const ObjectOwner object = TryMakeLive(machine);
        Require(object != nullptr, "a table is accepted on all routes");
        Require(AreEqual(WithoutBlocks(Everything(*object)), WithoutBlocks(tree)),
                "a table reads the same on all routes");
    }
}

// A structure's length tells the newest catalogue what it holds, and the version nothing, but on which side
// of 3.2 it lies.
void CheckOtherVersion(const Bytes& image, const SearchResult& tree)
{
    const TableImage table = TableImage::FromBytes(image);
    const bool isOld = table.Major() < 3 || (table.Major() == 3 && table.Minor() < 2);
    const ObjectOwner other = ReadWithNewest(isOld ? table.As(0, 0) : table.As(255, 255));
    Require(AreEqual(Everything(*other), tree), "a table reads the same whatever its version");
}

void CheckSecondReading(const Subject& subject, SMBIOSProtocolImpl& object, const SearchResult& tree)
{
    Require(AreEqual(Everything(*subject.Make()), tree), "the same bytes give the same tree");
    if (subject.Kind == Image && !subject.IsDump()) {
        const ObjectOwner same = TryMake([&] {
            return std::make_unique<SMBIOSProtocolImpl>(TableImage::FromBytes(subject.Raw),
                                                        Reading::ByVersion);
        });
        Require(same != nullptr && AreEqual(Everything(*same), tree),
                "a TableImage of an image has its tree");
    }
    if (subject.Kind != Segment && subject.Kind != Block)
        return;
    FakeSystem::TheMachine = subject.Live;
    FakeSystem::ReadAgain(object);
    Require(AreEqual(Everything(object), tree), "reading anew gives the same tree");
}

} // namespace

void Check(const unsigned char* data, std::size_t size, Effort effort)
{
    constexpr std::size_t LargestImage = 65'535;
    if (size < 1 || size > LargestImage + 1)
        return;
    const Subject subject(data + 1, size - 1, data[0]);
    const ObjectOwner object = subject.Make();
    if (object == nullptr)
        return;
    const Structures structures(*object, subject.Table(), subject.Kind == WithNewest);
    structures.CheckCounts();
    structures.CheckArrays();
    const std::size_t treeSize = Look(*object, structures).Size;
    const bool isSmall = treeSize <= LargestSmallTree;

    const std::size_t chosen =
        std::hash<std::string_view>()({reinterpret_cast<const char*>(data), size}) % InputsForEach;
    const auto isChosen = [&](Thorough test) { return effort == Effort::Whole || chosen == test; };
    if (treeSize > LargestThoroughTree || (effort == Effort::Usual && chosen > OtherRoute))
        return;
    const SearchResult tree = Everything(*object);
    if (isChosen(Subtrees) && isSmall)
        CheckSubtrees(*object, tree);
    if (isChosen(Copies) && isSmall)
        CheckCopies(*object, tree, Decoded(Images::Image(std::vector<Images::Structure>{})));
    if (isChosen(SecondReading))
        CheckSecondReading(subject, *object, tree);
    if (isChosen(OtherRoute) && subject.Kind == WithNewest)
        CheckOtherVersion(subject.Raw, tree);
    else if (isChosen(OtherRoute))
        CheckOthers(subject, tree);
}

} // namespace Properties
