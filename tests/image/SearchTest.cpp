// The query, and what the root's path may be.

#include "samples/Machines.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

using Protocol::SMBIOS::NodeView;

namespace {

TEST(Search, FindsExactPathsOnly)
{
    const auto server = Decoded(Images::TwoSocketServer());
    SearchResult result = {{"/mine", _XNode()}};
    for (const char* path :
         {"", "/", "SMBIOS", "/SMBIOS/", "/smbios", "/SMBIOS/Type4[1]/", "/SMBIOS/Type4[0]",
          "/SMBIOS/Type4[3]", "/SMBIOS/Type4[01]", "/SMBIOS/Type4[1]/Status/CPU", "/mine",
          "/SMBIOS/ProcessorInfo[1]/ProcessorFamily_Raw", "/SMBIOS/Type132[1]/SPD_RAW"})
        server->SMBiosSearch(path, result);
    server->SMBiosSearch(std::string("/SMBIOS\0", 8), result);
    EXPECT_EQ(result.size(), 1U);
}

// Whatever stands there already under a path of the answer goes; all else stays.
TEST(Search, AddsToTheMap)
{
    const auto server = Decoded(Images::TwoSocketServer());
    const std::string device = "/SMBIOS/Type10[1]", type = device + "/DeviceType";
    _XNode stale;
    stale.Items = {"stale", "stale"};
    stale.Attributes["stale"] = "stale";
    stale.Flag = 7;
    SearchResult result = {{device, stale}, {type, stale}, {device + "/", stale}};
    server->SMBiosSearch(device, result);
    server->SMBiosSearch("/SMBIOS/Type10[2]", result);
    EXPECT_EQ(result.size(), 7U);
    EXPECT_EQ(result.at(device + "/").Items, stale.Items);
    for (const std::string& path : {device, type}) {
        const _XNode fresh = Everything(*server, path).at(path);
        EXPECT_EQ(result.at(path).Items, fresh.Items);
        EXPECT_EQ(result.at(path).NodeType, fresh.NodeType);
        EXPECT_TRUE(result.at(path).Attributes.empty());
        EXPECT_EQ(result.at(path).Flag, 0);
    }
}

TEST(View, LeadsOnByNameAndNeedsNoTest)
{
    const auto server = Decoded(Images::TwoSocketServer());
    const NodeView status = server->Find("/SMBIOS").Child("Type4").Child("[1]").Child("Status");
    EXPECT_EQ(status.Path(), "/SMBIOS/Type4[1]/Status");
    EXPECT_EQ(status.Child("CPU Socket Populated").Value(), "Yes");
    for (const NodeView none :
         {NodeView(), server->Find("/none"), status.Child("CPU"), status.Child("/CPUStatus")}) {
        EXPECT_FALSE(none || none.IsLeaf() || none.Child("Size"));
        EXPECT_TRUE(none.Path().empty() && none.Name().empty() && none.Value().empty());
        EXPECT_TRUE(none.Children().empty() && none.DistinctChildren().empty());
    }
}

TEST(Search, GivesTheSameUnderEveryRoot)
{
    const Images::Bytes image = Images::TwoSocketServer();
    const auto expected = Decoded(image);
    for (const std::string& root : {std::string(), std::string("6"), std::string("/Type4[1]"),
                                    std::string("/SMBIOS/Type16[6]4"), std::string(5'000, 'r')}) {
        const auto object = Decoded(image, root);
        EXPECT_EQ(Answer(*object, root, "sums"), Answer(*expected, "/SMBIOS", "sums")) << root;
        EXPECT_EQ(Everything(*object, root).size(), Everything(*expected).size()) << root;
    }
}

} // namespace
