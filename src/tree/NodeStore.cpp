#include "tree/NodeStore.h"

#include "SMBIOSProtocol/TreeTooLarge.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace Protocol::SMBIOS {

namespace {

constexpr std::size_t LargestBlock = std::size_t{256} * 1024;

// The first eight characters as a number that orders like them.
std::uint64_t StartOf(std::string_view text)
{
    std::uint64_t start = 0;
    for (std::size_t i = 0; i < sizeof start; ++i)
        start = start << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
    return start;
}

} // namespace

const char* TreeTooLarge::what() const noexcept
{
    return "the SMBIOS table would make a tree of more than 1,048,576 writes: it is damaged, or made to "
           "exhaust memory";
}

NodeStore::~NodeStore()
{
    std::free(RawBlock);
}

TreeNode& NodeStore::NewNode(std::string_view path)
{
    TreeNode& node = Nodes.emplace_back();
    node.Path = path;
    return node;
}

std::string_view NodeStore::Keep(std::string_view first, std::string_view second, std::string_view third)
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

void NodeStore::Forget(std::string_view text)
{
    TextEnd -= text.size();
    TextLeft += text.size();
}

// Most children differ in the eight characters behind their parent's path, which compare as one number.
void NodeStore::OrderChildren()
{
    struct Child {
        std::uint64_t Start;
        TreeNode* Node;

        bool operator<(const Child& other) const
        {
            return Start != other.Start ? Start < other.Start : Node->Path < other.Node->Path;
        }
    };
    std::vector<Child> children;
    for (TreeNode& node : Nodes) {
        children.clear();
        for (TreeNode* child : node.Children)
            children.push_back({StartOf(child->Path.substr(node.Path.size())), child});
        std::sort(children.begin(), children.end());
        node.FirstByPath = static_cast<std::uint32_t>(ByPath.size());
        for (const Child& child : children)
            ByPath.push_back(child.Node);
    }
}

void NodeStore::CountWrite()
{
    if (Writes == TreeTooLarge::MaxWrites)
        throw TreeTooLarge();
    ++Writes;
}

void NodeStore::OwnRawBlock(unsigned char* block)
{
    std::free(RawBlock);
    RawBlock = block;
}

void NodeStore::AddBlock(std::size_t size)
{
    const std::size_t blockSize = std::max(size, BlockSize);
    TextBlocks.push_back(std::unique_ptr<char[]>(new char[blockSize]));
    TextEnd = TextBlocks.back().get();
    TextLeft = blockSize;
    BlockSize = std::min(2 * BlockSize, LargestBlock);
}

} // namespace Protocol::SMBIOS
