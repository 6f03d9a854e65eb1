#include "Properties.h"

#include "Look.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iterator>
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
        block.erase(block.begin(), block.begin() + HeaderSize);
        block.resize(length);
        return block;
    }

    // Whether the bytes begin with an entry point, behind which a TableImage finds the table.
    bool IsDump() const { return Raw.size() > 3 && std::equal(Raw.begin(), Raw.begin() + 3, "_SM"); }

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
// of 3.2 it lies; a table of version 0.0 has none, and reads as one of the newest.
void CheckOtherVersion(const Bytes& image, const SearchResult& tree)
{
    const TableImage table = TableImage::FromBytes(image);
    const bool isOld =
        table.Major() < 3 ? table.Major() + table.Minor() != 0 : table.Major() == 3 && table.Minor() < 2;
    const ObjectOwner other = ReadWithNewest(isOld ? table.As(0, 1) : table.As(0, 0));
    Require(AreEqual(Everything(*other), tree), "a table reads the same whatever its version");
}

// But for an image that begins like a block of Windows, which a TableImage may take it for: with a byte 0 or
// 1 and a version.
void CheckTableImage(const Bytes& image, const SearchResult& tree)
{
    if (image[0] <= 1 && image[1] <= 7)
        return;
    const ObjectOwner same = TryMake([&] {
        return std::make_unique<SMBIOSProtocolImpl>(TableImage::FromBytes(image), Reading::ByVersion);
    });
    Require(same != nullptr && AreEqual(Everything(*same), tree), "a TableImage of an image has its tree");
}

void CheckSecondReading(const Subject& subject, SMBIOSProtocolImpl& object, const SearchResult& tree)
{
    Require(AreEqual(Everything(*subject.Make()), tree), "the same bytes give the same tree");
    if (subject.Kind == Image && !subject.IsDump())
        CheckTableImage(subject.Raw, tree);
    if (subject.Kind != Segment && subject.Kind != Block)
        return;
    FakeSystem::TheMachine = subject.Live;
    FakeSystem::ReadAgain(object);
    Require(AreEqual(Everything(object), tree), "reading anew gives the same tree");
}

} // namespace

void Require(bool holds, const char* property)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", property);
    std::abort();
}

bool Check(const unsigned char* data, std::size_t size, Effort effort)
{
    constexpr std::size_t LargestImage = 65'535;
    if (size < 1 || size > LargestImage + 1)
        return true;
    const Subject subject(data + 1, size - 1, data[0]);
    const ObjectOwner object = subject.Make();
    if (object == nullptr)
        return true;
    const std::size_t treeSize = Look(*object, subject.Table(), subject.Kind == WithNewest);
    const bool isSmall = treeSize <= LargestSmallTree;

    const std::size_t chosen =
        std::hash<std::string_view>()({reinterpret_cast<const char*>(data), size}) % InputsForEach;
    const auto isChosen = [&](Thorough test) { return effort == Effort::Whole || chosen == test; };
    if (treeSize > LargestThoroughTree)
        return false;
    if (effort == Effort::Usual && chosen > OtherRoute)
        return true;
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
    return true;
}

} // namespace Properties
