// The object of the running machine: how it comes about, what fails it, and that it reads what an image would
// give.

#include "Machine.h"
#include "support/SampleServer.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>

using Protocol::SMBIOS::SMBIOSProtocolImpl;
using TestImages::Bytes;
using TestImages::Dword;
using TestImages::StructureOf;
using TestImages::Table;

namespace {

constexpr std::uint32_t TableAddress = 0xE1235;

Bytes SampleTable()
{
    const std::size_t entryPointSize = TestImages::EntryPoint(2, 7).size();
    Bytes table = TestImages::TwoSocketServer();
    table.resize(table.size() - entryPointSize);
    return table;
}

using Texts = std::map<std::string, std::vector<std::string>>;

// The paths of a tree with their items, but for the SPD data, which physical memory alone can give.
Texts TextsWithoutSpd(const SearchResult& tree)
{
    const auto isSpd = [](const std::string& path) { return path.find("/SPD_RAW") != std::string::npos; };
    Texts texts;
    for (const auto& [path, node] : tree) {
        std::vector<std::string> items = node.Items;
        items.erase(std::remove_if(items.begin(), items.end(), isSpd), items.end());
        if (!isSpd(path))
            texts[path + (node.NodeType == NODE_INNER ? " (inner)" : "")] = items;
    }
    return texts;
}

struct Route {
    bool IsBlock;
    unsigned char Major;
    unsigned char Minor;
};

class EveryRoute : public testing::TestWithParam<Route> {};

TEST_P(EveryRoute, GivesTheTreeOfTheImageAndTheReservedRange)
{
    const auto [isBlock, major, minor] = GetParam();
    const Bytes table = SampleTable();
    if (isBlock)
        TheMachine.PutBlock(table, static_cast<std::uint32_t>(table.size()), major, minor);
    else
        TheMachine.PutTable(table, major, minor);
    ASSERT_EQ(Create(), 0);
    SMBIOSProtocolImpl& live = SMBIOSProtocolImpl::CreateInstance();
    const std::size_t calls = TheMachine.Seen.size();

    Tree image(TestImages::Image(table, major, minor));
    EXPECT_EQ(TheMachine.Seen.size(), calls) << "an image is decoded without the machine";
    const SearchResult expected = image.Search("/SMBIOS");
    const SearchResult tree = Search(live, "/SMBIOS");
    EXPECT_EQ(TextsWithoutSpd(tree), TextsWithoutSpd(expected));

    const bool hasOemTypes = major * 10 + minor >= 27;
    const std::size_t blocks = hasOemTypes ? expected.at("/SMBIOS/Type132").Items.size() : 0;
    EXPECT_EQ(tree.size(), expected.size() + blocks) << "a leaf for each block of SPD data";

    unsigned int address = 7;
    unsigned int size = 7;
    live.GetBiosReservedMem(nullptr, nullptr);
    live.GetBiosReservedMem(&address, nullptr);
    EXPECT_EQ(address, hasOemTypes ? 0x7F000000U : 0U);
    live.GetBiosReservedMem(nullptr, &size);
    EXPECT_EQ(size, hasOemTypes ? 0x01000000U : 0U);
    image.Object.GetBiosReservedMem(&address, &size);
    EXPECT_EQ(address, 0U);
    EXPECT_EQ(size, 0U);
}

constexpr Route Routes[] = {
    {false, 2, 3}, {false, 2, 4}, {false, 2, 5}, {false, 2, 6}, {false, 2, 7}, {false, 2, 8}, {false, 3, 0},
    {true, 2, 3},  {true, 2, 4},  {true, 2, 5},  {true, 2, 6},  {true, 2, 7},  {true, 2, 8},  {true, 3, 0},
};

INSTANTIATE_TEST_SUITE_P(, EveryRoute, testing::ValuesIn(Routes), [](const auto& test) {
    return std::string(test.param.IsBlock ? "Block" : "EntryPoint") + std::to_string(test.param.Major) + "_" +
           std::to_string(test.param.Minor);
});

// A table for three mappings: the segment's, its own, and that of an SPD block.
class ThreeMappings : public testing::Test {
protected:
    ThreeMappings() { TheMachine.PutTable(Contents, 2, 7, TableAddress); }

    const Bytes Contents = Table({StructureOf(1, 1, "Maker", "Machine", Bytes(21)),
                                  StructureOf(132, 2, Dword{0xFFF00000}, Dword{3}, Bytes(4)),
                                  StructureOf(133, 3, Dword{0xFFFFFFFF}, Dword{0xFFFFFFFE})});
    const std::vector<Events> Mappings = {Mapped(SegmentAddress, SegmentLength),
                                          Mapped(TableAddress, static_cast<unsigned int>(Contents.size())),
                                          Mapped(0xFFF00000, 3)};
};

// Each fails, with the lock given back and the failure passed on; then none fails.
TEST_F(ThreeMappings, FailAndTheNextObjectStartsOver)
{
    const ResultStatus denied(RESULT_MAPPING_DENIED, "no way", "driver", _XCOMMAND(1));
    for (int site = 1; site <= 3; ++site) {
        const Events expected = Joined({Mappings.begin(), Mappings.begin() + site});
        TheMachine.MapFailure = std::make_exception_ptr(denied);
        TheMachine.FailingMap = site;
        TheMachine.Seen.clear();
        try {
            SMBIOSProtocolImpl::CreateInstance();
            FAIL() << "site " << site;
        } catch (const ResultStatus& failure) {
            EXPECT_EQ(failure.Code(), denied.Code());
            EXPECT_EQ(failure.Message(), denied.Message());
            EXPECT_EQ(failure.Source(), denied.Source());
            EXPECT_EQ(failure.Command(), denied.Command());
        }
        EXPECT_EQ(TheMachine.Seen, expected);

        TheMachine.MapFailure = std::make_exception_ptr(std::bad_alloc());
        TheMachine.FailingMap = site;
        TheMachine.Seen.clear();
        EXPECT_THROW(SMBIOSProtocolImpl::CreateInstance(), std::bad_alloc);
        EXPECT_EQ(TheMachine.Seen, expected);
    }

    TheMachine.Seen.clear();
    SMBIOSProtocolImpl& first = SMBIOSProtocolImpl::CreateInstance();
    EXPECT_EQ(TheMachine.Seen, Joined(Mappings));
    TheMachine.Seen.clear();
    EXPECT_EQ(&SMBIOSProtocolImpl::CreateInstance(), &first);
    EXPECT_EQ(LiveLeaf("/SMBIOS/Type1/Manufacturer"), "Maker");
    unsigned int address = 0;
    unsigned int size = 0;
    first.GetBiosReservedMem(&address, &size);
    EXPECT_EQ(address, 0xFFFFFFFFU);
    EXPECT_EQ(size, 0xFFFFFFFEU);
    EXPECT_EQ(TheMachine.Seen, Events()) << "a finished object answers by itself";
}

TEST_F(ThreeMappings, AreTracedOnDemandEachBeforeItsLock)
{
    LOGGER::Logger::CreateInstance().TraceLocks = true;
    ASSERT_EQ(Create(), 0);
    const auto trace = [](const std::string& function) {
        return Events{Logged(function, "Locking at .\\SMBIOSProtocolImpl: "
                                       "Protocol::SMBIOS::SMBIOSProtocolImpl::" +
                                           function + ": LINE")};
    };
    EXPECT_EQ(TheMachine.Seen, Joined({trace("GetSMBiosEntryPtr"), Mappings[0], trace("GetSMBiosEntryPtr"),
                                       Mappings[1], trace("DumpMemorySPD"), Mappings[2]}));
}

TEST_F(ThreeMappings, GoOnWithoutALock)
{
    TheMachine.LockIsFree = false;
    EXPECT_EQ(Create(), 0);
    EXPECT_EQ(TheMachine.Seen, Joined(Mappings));
}

} // namespace
