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

// An inner node's answer is what the whole tree's answer holds at and below its path, and nothing beside it;
// a leaf's answer is itself.
TEST(Search, OfAPartIsPartOfTheWhole)
{
    Tree tree(TwoSocketServer());
    const SearchResult whole = tree.Search("/SMBIOS");
    for (const auto& [path, node] : whole) {
        std::vector<std::string> expected;
        for (const auto& entry : whole) {
            const bool isBelow =
                entry.first.rfind(path + "/", 0) == 0 || entry.first.rfind(path + "[", 0) == 0;
            if (entry.first == path || isBelow)
                expected.push_back(entry.first);
        }
        const SearchResult part = tree.Search(path);
        EXPECT_EQ(Keys(part), expected);
        EXPECT_EQ(part.at(path).Items, node.Items);
    }
}

TEST(Search, FindsExactPathsOnly)
{
    Tree tree(TwoSocketServer());
    SearchResult result = {{"/mine", _XNode()}};
    for (const char* path :
         {"", "/", "SMBIOS", "/SMBIOS/", "/smbios", "/SMBIOS/Type4[1]/", "/SMBIOS/Type4[0]",
          "/SMBIOS/Type4[3]", "/SMBIOS/Type4[01]", "/SMBIOS/Type4[1]/Status/CPU", "/mine",
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

} // namespace
