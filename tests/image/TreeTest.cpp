// The form of the tree, and the structures decoded behind handles.

#include "support/Tree.h"
#include "support/Parts.h"
#include "support/SampleServer.h"

#include <gtest/gtest.h>

using namespace TestImages;

namespace {

const std::string Link = "/L1CacheHandle";

// Both write to the same paths: the later one's texts stand there, listed twice.
TEST(TreeForm, TwoStructuresOfATypeWithoutIndex)
{
    Tree tree(Image({StructureOf(133, 1, Dword{1}, Dword{2}), StructureOf(133, 2, Dword{3}, Dword{4})}));
    const std::vector<std::string> expected = {"/Address = 3", "/Size = 4", "/Address = 3", "/Size = 4"};
    EXPECT_EQ(tree.Leaves("/SMBIOS/Type133"), expected);
    EXPECT_EQ(tree.Search("/SMBIOS/Type133").size(), 3U);
}

// The separators by which subtrees are copied ("4", "6", "]") may stand in the root's path.
TEST(TreeForm, IsTheSameUnderEveryRoot)
{
    Tree server(TwoSocketServer());
    for (const std::string root : {"", "/", "x", "/4", "6", "/a]b[4]", "/Type4[1]", "/SMBIOS/Type16[6]4"}) {
        Tree tree(TwoSocketServer(), root);
        EXPECT_EQ(tree.Leaves(root), server.Leaves("/SMBIOS")) << root;
        EXPECT_EQ(tree.Search(root).size(), server.Search("/SMBIOS").size()) << root;
    }
}

// The number beside a family hangs on the whole path, the root's part included.
TEST(TreeForm, RawNumbersBelowARootNamedLikeTheFamily)
{
    Tree tree(Image({StructureOf(1, 1, Bytes(20), 6, Bytes(2))}), "/ProcessorFamily");
    EXPECT_EQ(tree.Leaf("/ProcessorFamily/Type1/WakeupType_Raw"), "6");
}

TEST(Links, FromEachHandleField)
{
    const Structure third =
        StructureOf(4, 0x0402, Bytes(22), Word{0xFFFF}, Word{0xFFFF}, Word{0x0703}, Bytes(10));
    const Structure fourth = Processor(0x0403, 0x0401, 0x0702);
    Tree tree(
        Image({Processor(0x0400, 0x07AF, 0x0702), Processor(0x0401, 0x0702, 0x0702), third, fourth,
               Cache(0x07AF, "one"), Cache(0x0702, "two"), Cache(0x0703, "three"),
               MemoryArray(0x1000, 0x1801), MemoryDevice(0x1000, 8, "A", 0x1802), MemoryError(0x1801, 4),
               MemoryError(0x1802, 5), StructureOf(2, 0x0200, Bytes(7), Word{0x07AF}, 0, 0, Word{0x07AF})}));
    const struct {
        std::string Path, Text;
    } cases[] = {
        {"/Type4[1]/L1CacheHandle/Handle", "0x07AF"},
        {"/Type4[1]/L1CacheHandle/SocketDesignation", "one"},
        {"/Type4[1]/L2CacheHandle/SocketDesignation", "two"},
        {"/Type4[3]/L3CacheHandle/SocketDesignation", "three"},
        {"/Type4[2]/L2CacheHandle/SocketDesignation", "two"},
        {"/Type4[4]/L1CacheHandle/L1CacheHandle/SocketDesignation", "two"},
        {"/Type4[4]/L1CacheHandle/ProcessorFamily_Raw", "1"},
        {"/Type16[1]/MemoryErrorInfoHandle/Handle", "0x1801"},
        {"/Type16[1]/MemoryErrorInfoHandle/ErrorType", "Bad read"},
        {"/Type17[1]/MemoryErrorInfoHandle/ErrorType", "Parity error"},
        {"/Type2[1]/ChassisHandle", "1967"},
        {"/Type2[1]/ContainObjectHandles", "1967"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(tree.Leaf("/SMBIOS" + each.Path), each.Text) << each.Path;
    EXPECT_EQ(tree.Children("/SMBIOS/Type4[1]" + Link).front(), "/Handle");
}

TEST(Links, ByHandleAndTarget)
{
    const struct {
        const char* Name;
        unsigned int Handle;
        std::vector<Structure> Targets;
        std::string Leaf; ///< of the field itself
        std::size_t Items;
        unsigned char Minor = 7;
    } cases[] = {
        {"none", 0xFFFF, {Cache(0xFFFF, "")}, "65535", 1},
        {"not provided", 0xFFFE, {Cache(0xFFFE, "")}, "65534", 1},
        {"zero", 0, {Cache(0, "")}, "0", 1},
        {"the highest one", 0xFFFD, {Cache(0xFFFD, "")}, "(inner)", 11},
        {"nobody's", 0x0700, {Cache(0x0701, "")}, "(inner)", 0},
        {"an unread type's", 0x0700, {StructureOf(5, 0x0700, Bytes(30))}, "(inner)", 0},
        {"type 133's in 2.6", 0x0700, {StructureOf(133, 0x0700, Bytes(8))}, "(inner)", 0, 6},
        {"type 133's in 2.7", 0x0700, {StructureOf(133, 0x0700, Bytes(8))}, "(inner)", 3},
        {"of two types: the later one's", 0x0700, {Cache(0x0700, ""), MemoryError(0x0700)}, "(inner)", 8},
        {"the other way", 0x0700, {MemoryError(0x0700), Cache(0x0700, "")}, "(inner)", 11},
        {"of one type twice: both", 0x0700, {Cache(0x0700, "a"), Cache(0x0700, "b")}, "(inner)", 22},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Name);
        std::vector<Structure> table = each.Targets;
        table.push_back(Processor(0x0400, each.Handle));
        Tree tree(Image(table, 2, each.Minor));
        const std::string path = "/SMBIOS/Type4[1]" + Link;
        EXPECT_EQ(tree.Leaf(path), each.Leaf);
        EXPECT_EQ(tree.Search(path).at(path).Items.size(), each.Items);
    }
}

// Of two structures with one handle, the first has a link where the second, decoded over it, has a plain
// value. What the link leads to is listed behind that value; a search from above does not go there.
TEST(Links, LeafOverLinkKeepsItsValueAheadOfTheLink)
{
    Tree tree(Image({MemoryArray(1, 0x1100), MemoryDevice(1, 8, "A", 3), MemoryDevice(1, 8, "B", 0xFFFF),
                     MemoryError(3)}));
    const std::string path = "/SMBIOS/Type16[1]/MemoryErrorInfoHandle/MemoryErrorInfoHandle";
    const SearchResult all = tree.Search("/SMBIOS");
    EXPECT_EQ(all.at(path).NodeType, NODE_LEAF);
    ASSERT_EQ(all.at(path).Items.size(), 9U);
    EXPECT_EQ(all.at(path).Items[0], "65535");
    EXPECT_EQ(all.at(path).Items[1], path + "/Handle");
    EXPECT_EQ(all.count(path + "/Handle"), 0U);
    EXPECT_EQ(tree.Leaf(path + "/Handle"), "0x0003");
}

// The other way round the value goes, and what a link leads to is listed as often as it is followed.
TEST(Links, LinkOverLeafOrLinkIsInner)
{
    for (const auto& [firstLink, times] : {std::pair(0xFFFF, 1U), std::pair(3, 2U)}) {
        Tree tree(
            Image({MemoryArray(1, 0x1100), MemoryDevice(1, 8, "A", static_cast<std::uint16_t>(firstLink)),
                   MemoryDevice(1, 8, "B", 3), MemoryError(3)}));
        const std::string path = "/SMBIOS/Type16[1]/MemoryErrorInfoHandle/MemoryErrorInfoHandle";
        const SearchResult all = tree.Search("/SMBIOS");
        EXPECT_EQ(all.at(path).NodeType, NODE_INNER);
        EXPECT_EQ(all.at(path).Items.size(), 8U * times);
        EXPECT_EQ(all.count(path + "/Handle"), 1U);
    }
}

/// How many links are followed one behind the other, from the first processor's on.
std::size_t Depth(Tree& tree)
{
    std::size_t depth = 0;
    std::string path = "/SMBIOS/Type4[1]" + Link;
    for (; tree.Has(path + "/Handle"); path += Link)
        ++depth;
    EXPECT_EQ(tree.Leaf(path), "(inner)");
    EXPECT_TRUE(tree.Children(path).empty());
    return depth;
}

// A link is followed unless its handle was followed on the way to it, and at most four deep.
TEST(Links, ChainsAndRingsEnd)
{
    const struct {
        const char* Name;
        std::vector<Structure> Processors;
        std::size_t Depth;
    } cases[] = {
        {"to itself", {Processor(1, 1)}, 1},
        {"ring of four", {Processor(1, 2), Processor(2, 3), Processor(3, 4), Processor(4, 1)}, 4},
        {"into a self link", {Processor(1, 2), Processor(2, 2)}, 1},
        {"chain into nothing", {Processor(1, 2), Processor(2, 3), Processor(3, 9)}, 2},
        {"chain of six",
         {Processor(1, 2), Processor(2, 3), Processor(3, 4), Processor(4, 5), Processor(5, 6),
          Processor(6, 7), Processor(7, 0xFFFF)},
         4},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Name);
        Tree tree(Image(each.Processors));
        EXPECT_EQ(Depth(tree), each.Depth);
    }
}

} // namespace
