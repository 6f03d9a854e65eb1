// What the fuzzers found, in small.

#include "support/Tree.h"

#include <gtest/gtest.h>

using TestImages::Structure;

// Of two structures with one handle, the first has a link where the second, decoded over it, has a plain
// value.
TEST(FoundByFuzzers, LeafOverLinkHasOneValue)
{
    const auto device = [](unsigned int link) { return Structure(17, 2).Word(1).Word(link).Fill(24); };
    Tree tree(TestImages::Image(
        {Structure(16, 1).Fill(7).Word(2).Word(1), device(3), device(0xFFFF), Structure(18, 3).Fill(19)}));

    const std::string path = "/SMBIOS/Type16[1]/MemoryErrorInfoHandle/MemoryErrorInfoHandle";
    const _XNode leaf = tree.Search(path).at(path);
    EXPECT_EQ(leaf.NodeType, NODE_LEAF);
    EXPECT_EQ(leaf.Items, std::vector<std::string>{"65535"});
}
