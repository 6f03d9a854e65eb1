// The query.

#include "support/SampleServer.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

using namespace TestImages;

namespace {

std::vector<std::string> Keys(const SearchResult& result)
{
    std::vector<std::string> keys;
    for (const auto& entry : result)
        keys.push_back(entry.first);
    return keys;
}

TEST(Search, GivesTheNodeAndAllBelow)
{
    Tree tree(TwoSocketServer());
    const std::string status = "/SMBIOS/Type4[1]/Status";
    const SearchResult result = tree.Search(status);
    EXPECT_EQ(Keys(result),
              (std::vector<std::string>{status, status + "/CPU Socket Populated", status + "/CPUStatus"}));
    EXPECT_EQ(result.at(status).Items,
              (std::vector<std::string>{status + "/CPUStatus", status + "/CPU Socket Populated"}));
    EXPECT_EQ(Keys(tree.Search(status + "/CPUStatus")), std::vector<std::string>{status + "/CPUStatus"});
}

// A subtree's answer is what the whole tree's answer holds at and below its path, and nothing beside it.
TEST(Search, OfAPartIsPartOfTheWhole)
{
    Tree tree(TwoSocketServer());
    const SearchResult whole = tree.Search("/SMBIOS");
    for (const auto& [path, node] : whole) {
        if (node.NodeType == NODE_LEAF)
            continue;
        std::vector<std::string> expected;
        for (const auto& entry : whole) {
            const bool isBelow =
                entry.first.rfind(path + "/", 0) == 0 || entry.first.rfind(path + "[", 0) == 0;
            if (entry.first == path || isBelow)
                expected.push_back(entry.first);
        }
        EXPECT_EQ(Keys(tree.Search(path)), expected);
    }
}

TEST(Search, FindsExactPathsOnly)
{
    Tree tree(TwoSocketServer());
    SearchResult result = {{"/mine", _XNode()}};
    for (const char* path : {"", "/", "SMBIOS", "/SMBIOS/", "/smbios", "/SMBIOS/Type4[1]/",
                             "/SMBIOS/type4[1]", "/SMBIOS/Type4[0]", "/SMBIOS/Type4[3]", "/SMBIOS/Type4[01]",
                             "/SMBIOS/Type5", "/SMBIOS/Type4[1]/Status/CPU", "/mine",
                             "/SMBIOS/ProcessorInfo[1]/ProcessorFamily_Raw", "/SMBIOS/Type132[1]/SPD_RAW"})
        tree.Object.SMBiosSearch(path, result);
    tree.Object.SMBiosSearch(std::string("/SMBIOS\0", 8), result);
    EXPECT_EQ(Keys(result), std::vector<std::string>{"/mine"});
}

TEST(Search, AddsToTheMap)
{
    Tree tree(TwoSocketServer());
    const std::string first = "/SMBIOS/Type10[1]", second = "/SMBIOS/Type10[2]";
    _XNode stale;
    stale.Items = {"stale", "stale"};
    stale.Attributes["stale"] = "stale";
    stale.Flag = 7;
    SearchResult result = {{first, stale}, {first + "/DeviceType", stale}, {"/SMBIOS/Type10[1]/", stale}};
    tree.Object.SMBiosSearch(first, result);
    tree.Object.SMBiosSearch(second, result);

    EXPECT_EQ(result.size(), 7U);
    EXPECT_EQ(result.at("/SMBIOS/Type10[1]/").Items, stale.Items);
    EXPECT_EQ(result.at(first + "/DeviceType").Items, std::vector<std::string>{"Video"});
    EXPECT_TRUE(result.at(first + "/DeviceType").Attributes.empty());
    EXPECT_EQ(result.at(first).Items,
              (std::vector<std::string>{first + "/DeviceType", first + "/DescriptionString"}));
    EXPECT_EQ(result.at(first).Flag, 0);
}

TEST(Search, GivesCopiesOfItsOwn)
{
    SearchResult result;
    {
        Tree tree(TwoSocketServer());
        SearchResult changed = tree.Search("/SMBIOS");
        for (auto& entry : changed)
            entry.second.Items = {"changed"};
        result = tree.Search("/SMBIOS/Type1");
    }
    EXPECT_EQ(result.at("/SMBIOS/Type1/Family").Items, std::vector<std::string>{"Tarn"});
}

// A leaf's text is never taken for a path.
TEST(Search, TextsThatReadLikePaths)
{
    Tree tree(
        Image({StructureOf(1, 1, "/SMBIOS", "/SMBIOS/Type1", "/SMBIOS/Type1/ProductName", "", Bytes(19))}));
    const std::string leaf = "/SMBIOS/Type1/Manufacturer";
    EXPECT_EQ(Keys(tree.Search(leaf)), std::vector<std::string>{leaf});
    EXPECT_EQ(tree.Search("/SMBIOS/Type1").size(), 9U);
}

} // namespace
