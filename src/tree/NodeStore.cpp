#include "tree/NodeStore.h"

#include "SMBIOSProtocol/TreeTooLarge.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unordered_set>

namespace Protocol::SMBIOS {

namespace {

constexpr std::size_t TextOfAWrite = 254; ///< by version a text has no more
constexpr std::size_t SmallestBlock = std::size_t{4} * 1024;
constexpr std::size_t LargestBlock = std::size_t{256} * 1024;
constexpr std::size_t SmallestIndex = 1024; ///< slots; a power of two, as every later size is

// How many nodes an index of `slots` takes.
constexpr std::size_t RoomOf(std::size_t slots)
{
    return slots / 4 * 3;
}

// Takes eight characters at a time; the last eight may overlap those before.
std::uint32_t HashOf(std::string_view text)
{
    constexpr std::uint64_t Factor = 0x9E3779B97F4A7C15; // odd, with bits that follow no pattern
    constexpr std::size_t Width = sizeof(std::uint64_t);
    std::uint64_t hash = text.size();
    const auto mix = [&hash](const char* characters, std::size_t count) {
        std::uint64_t word = 0;
        std::memcpy(&word, characters, count);
        hash = (hash ^ word) * Factor;
        hash ^= hash >> 32;
    };
    if (text.size() < Width) {
        if (!text.empty())
            mix(text.data(), text.size());
        return static_cast<std::uint32_t>(hash);
    }
    const char* const last = text.data() + text.size() - Width;
    for (const char* next = text.data(); next < last; next += Width)
        mix(next, Width);
    mix(last, Width);
    return static_cast<std::uint32_t>(hash);
}

// The first eight characters as a number that orders like them.
std::uint64_t StartOf(std::string_view text)
{
    unsigned char characters[sizeof(std::uint64_t)] = {};
    if (text.size() >= sizeof characters)
        std::memcpy(characters, text.data(), sizeof characters); // of a known length: one load
    else
        std::memcpy(characters, text.data(), text.size());
    std::uint64_t start = 0;
    for (const unsigned char character : characters)
        start = start << 8 | character;
    return start;
}

// A child with the first characters behind its parent's path. Most children differ there, which is one number
// to compare.
struct PlacedChild {
    std::uint64_t Start;
    const TreeNode* Node;

    bool operator<(const PlacedChild& other) const
    {
        return Start != other.Start ? Start < other.Start : Node->Path < other.Node->Path;
    }
};

// Puts the children each once behind `end`, the end of the rows, if any is listed twice. Gives the new end.
const TreeNode** AddDistinct(TreeNode& node, const TreeNode** end)
{
    std::unordered_set<const TreeNode*> visited;
    const NodeRow listed = node.Listed();
    const TreeNode** const distinctEnd =
        std::copy_if(listed.begin(), listed.end(), end,
                     [&visited](const TreeNode* child) { return visited.insert(child).second; });
    node.ListsRepeats = static_cast<std::size_t>(distinctEnd - end) != node.ChildCount;
    if (!node.ListsRepeats)
        return end;
    *distinctEnd = nullptr;
    return distinctEnd + 1;
}

} // namespace

const char* TreeTooLarge::what() const noexcept
{
    return "the SMBIOS table would make a tree of more than 1,048,576 writes: it is damaged, or made to "
           "exhaust memory";
}

NodeRow TreeNode::Distinct() const
{
    if (!ListsRepeats)
        return Listed();
    const TreeNode* const* const first = Rows + std::size_t{2} * ChildCount;
    const TreeNode* const* end = first;
    while (*end != nullptr)
        ++end;
    return {first, static_cast<std::size_t>(end - first)};
}

NodeStore::~NodeStore()
{
    std::free(RawBlock);
}

TreeNode* NodeStore::Find(std::string_view path) const
{
    if (Slots.empty())
        return nullptr;
    const std::uint32_t number = Slots[SlotOf(path, HashOf(path))].Number;
    return number == 0 ? nullptr : &Nodes[number - 1];
}

const TreeNode* NodeStore::FindChild(const TreeNode& parent, std::string_view name) const
{
    const std::size_t size = parent.Path.size() + 1 + name.size();
    for (const TreeNode* child : Children(parent)) {
        if (child->Path.size() == size && child->Path.substr(parent.Path.size() + 1) == name)
            return child;
    }
    return nullptr;
}

// The number of the node at the three texts, joined.
std::uint32_t NodeStore::FindOrAdd(std::string_view first, std::string_view second, std::string_view third)
{
    if (Nodes.Size() >= RoomOf(Slots.size()))
        GrowIndex(std::max(SmallestIndex, 2 * Slots.size()));
    const std::string_view path = Join(first, second, third);
    const std::uint32_t hash = HashOf(path);
    Slot& slot = Slots[SlotOf(path, hash)];
    if (slot.Number == 0) {
        Nodes.Append({path, {}, {{0, 0}}, 0, 0, false, false});
        slot = {hash, static_cast<std::uint32_t>(Nodes.Size())};
    } else {
        TextEnd -= path.size();
        TextLeft += path.size();
    }
    return slot.Number - 1;
}

// Where the node at `path` stands, or would.
std::size_t NodeStore::SlotOf(std::string_view path, std::uint32_t hash) const
{
    const std::size_t mask = Slots.size() - 1;
    for (std::size_t i = hash & mask;; i = (i + 1) & mask) {
        const Slot& slot = Slots[i];
        if (slot.Number == 0 || (slot.Hash == hash && Nodes[slot.Number - 1].Path == path))
            return i;
    }
}

void NodeStore::Reserve(std::size_t nodeCount)
{
    std::size_t size = std::max(SmallestIndex, Slots.size());
    while (RoomOf(size) < nodeCount)
        size *= 2;
    if (size > Slots.size())
        GrowIndex(size);
}

void NodeStore::GrowIndex(std::size_t size)
{
    std::vector<Slot> grown(size);
    const std::size_t mask = grown.size() - 1;
    for (const Slot& slot : Slots) {
        if (slot.Number == 0)
            continue;
        std::size_t i = slot.Hash & mask;
        while (grown[i].Number != 0)
            i = (i + 1) & mask;
        grown[i] = slot;
    }
    Slots.swap(grown);
}

TreeNode& NodeStore::ListChild(TreeNode& parent, std::string_view separator, std::string_view name)
{
    CountWrite();
    const std::size_t nodesBefore = Nodes.Size();
    const std::uint32_t number = FindOrAdd(parent.Path, separator, name);
    if (Nodes.Size() == nodesBefore)
        parent.ListsRepeats = true;
    TreeNode& child = Nodes[number];
    child.ParentSize = static_cast<std::uint32_t>(parent.Path.size());

    const auto listing = static_cast<std::uint32_t>(Listings.Size());
    Listings.Append({number, 0});
    if (parent.ChildCount == 0)
        parent.Chain.First = listing;
    else
        Listings[parent.Chain.Last].Next = listing;
    parent.Chain.Last = listing;
    ++parent.ChildCount;
    return child;
}

TreeNode& NodeStore::ListInstance(TreeNode& parent, std::size_t index)
{
    return ListChild(parent, "[", std::to_string(index) + "]");
}

TreeNode& NodeStore::AddInstance(TreeNode& parent, std::size_t index)
{
    TreeNode& instance = ListInstance(parent, index);
    Overwrite(instance, NODE_INNER);
    return instance;
}

void NodeStore::Overwrite(TreeNode& node, _NODE_TYPE type, std::string_view lasting)
{
    CountWrite();
    node.IsLeaf = type == NODE_LEAF;
    node.Value = lasting;
    node.ChildCount = 0;
    node.ListsRepeats = false;
}

void NodeStore::OrderChildren()
{
    std::size_t size = 0;
    for (std::size_t i = 0; i < Nodes.Size(); ++i) {
        const std::size_t count = Nodes[i].ChildCount;
        size += Nodes[i].ListsRepeats ? 3 * count + 1 : 2 * count;
    }
    ChildRows.reset(new const TreeNode*[size]);

    const TreeNode** end = ChildRows.get();
    std::vector<PlacedChild> byPath;
    for (std::size_t i = 0; i < Nodes.Size(); ++i) {
        TreeNode& node = Nodes[i];
        const TreeNode** const rows = end;
        if (node.ChildCount == 0) {
            node.Rows = rows;
            continue;
        }
        byPath.clear();
        for (const TreeNode* child : Children(node)) {
            *end++ = child;
            byPath.push_back({StartOf(child->Path.substr(node.Path.size())), child});
        }
        std::sort(byPath.begin(), byPath.end());
        for (const PlacedChild& child : byPath)
            *end++ = child.Node;
        node.Rows = rows;
        if (node.ListsRepeats)
            end = AddDistinct(node, end);
    }
    Listings.Clear();
}

std::string_view NodeStore::Join(std::string_view first, std::string_view second, std::string_view third)
{
    const std::size_t size = first.size() + second.size() + third.size();
    if (size > TextLeft)
        AddBlock(size);
    char* const start = TextEnd;
    for (const std::string_view text : {first, second, third})
        TextEnd = std::copy(text.begin(), text.end(), TextEnd);
    TextLeft -= size;
    return {start, size};
}

// Blocks grow with the text, so that neither their number nor what is left of the last one counts.
void NodeStore::AddBlock(std::size_t size)
{
    const std::size_t blockSize = std::max(size, std::clamp(TextSize / 8, SmallestBlock, LargestBlock));
    TextBlocks.push_back(std::unique_ptr<char[]>(new char[blockSize]));
    TextEnd = TextBlocks.back().get();
    TextLeft = blockSize;
    TextSize += blockSize;
}

// One write to the tree.
void NodeStore::CountWrite()
{
    if (Writes == TreeTooLarge::MaxWrites)
        throw TreeTooLarge();
    ++Writes;
}

void NodeStore::CountText(std::string_view text)
{
    const std::size_t further = text.empty() ? 0 : (text.size() - 1) / TextOfAWrite;
    if (further > TreeTooLarge::MaxWrites - Writes)
        throw TreeTooLarge();
    Writes += static_cast<unsigned int>(further);
}

void NodeStore::OwnRawBlock(unsigned char* block)
{
    std::free(RawBlock);
    RawBlock = block;
}

} // namespace Protocol::SMBIOS
