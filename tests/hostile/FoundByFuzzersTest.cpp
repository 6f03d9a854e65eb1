// What the fuzzers found, in small.

#include "support/Tree.h"

#include <gtest/gtest.h>

using TestImages::Structure;

// Of two structures with one handle, the first has a link where the second, decoded over it, has a plain
// value. What the link leads to is listed behind that value; a search from above does not go there.
TEST(FoundByFuzzers, LeafOverLinkKeepsItsValueAheadOfTheLink)
{
    const auto device = [](unsigned int link) { return Structure(17, 2).Word(1).Word(link).Fill(24); };
    Tree tree(TestImages::Image(
        {Structure(16, 1).Fill(7).Word(2).Word(1), device(3), device(0xFFFF), Structure(18, 3).Fill(19)}));

    const std::string path = "/SMBIOS/Type16[1]/MemoryErrorInfoHandle/MemoryErrorInfoHandle";
    const SearchResult all = tree.Search("/SMBIOS");
    const _XNode& leaf = all.at(path);
    EXPECT_EQ(leaf.NodeType, NODE_LEAF);
    ASSERT_EQ(leaf.Items.size(), 9U);
    EXPECT_EQ(leaf.Items[0], "65535");
    EXPECT_EQ(leaf.Items[1], path + "/Handle");
    EXPECT_EQ(all.count(path + "/Handle"), 0U);
    EXPECT_EQ(tree.Leaf(path + "/Handle"), "0x0003");
}
