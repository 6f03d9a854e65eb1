// The query, and what the root's path may be.

#include "samples/Machines.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

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

// Sees each descent of a search.
class Spy : public SMBIOSProtocolImpl {
public:
    explicit Spy(SMBIOSProtocolImpl& source) : SMBIOSProtocolImpl(source) {}

    void SMBiosSearch(std::string path, SearchResult& results) override
    {
        Asked.push_back(path);
        SMBIOSProtocolImpl::SMBiosSearch(path, results);
    }

    std::vector<std::string> Asked;
};

TEST(Search, OfADerivedClassSeesEachDescentInOrder)
{
    Spy spy(*Decoded(Images::TwoSocketServer()));
    const std::string status = "/SMBIOS/Type4[1]/Status";
    EXPECT_EQ(Everything(spy, status).size(), 3U);
    EXPECT_EQ(spy.Asked,
              (std::vector<std::string>{status, status + "/CPUStatus", status + "/CPU Socket Populated"}));
}

TEST(Search, GivesTheSameUnderEveryRoot)
{
    const Images::Bytes image = Images::TwoSocketServer();
    const SearchResult expected = Everything(*Decoded(image));
    const auto below = [](const std::string& root, const std::string& path) { return root + path.substr(7); };
    for (const std::string& root : {std::string(), std::string("6"), std::string("/Type4[1]"),
                                    std::string("/SMBIOS/Type16[6]4"), std::string(5'000, 'r')}) {
        const auto object = Decoded(image, root);
        SearchResult moved;
        for (auto [path, node] : expected) {
            if (node.NodeType == NODE_INNER) {
                for (std::string& child : node.Items)
                    child = below(root, child);
            }
            moved[below(root, path)] = node;
        }
        EXPECT_TRUE(AreEqual(Everything(*object, root), moved)) << root;
    }
}

} // namespace
