// The object of the running machine: how it comes about, what fails it, and that it reads what an image would
// give.

#include "Machine.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

#include <new>

using Protocol::SMBIOS::SMBIOSProtocolImpl;
using TestImages::Bytes;
using TestImages::Structure;
using TestImages::Table;

namespace {

constexpr std::uint32_t TableAddress = 0xE1235;

// Some of everything: texts, a link, both inventories, and what the live routes add.
Bytes SmallMachine()
{
    return Table({
        Structure(0, 0)
            .Text("Maker of firmware")
            .Text("1.23")
            .Word(0xF000)
            .Text("01/02/2013")
            .Byte(15)
            .Qword(8),
        Structure(1, 1).Text("Maker").Text("Machine").Fill(21, 0x5A),
        Structure(2, 2).Text("Board maker").Text("Board").Fill(11),
        Structure(4, 4).Text("CPU 1").Byte(3).Byte(0xB3).Fill(18, 0x41).Word(7).Word(7).Word(0xFFFF).Fill(8),
        Structure(7, 7).Text("L1").Word(0x180).Word(32).Word(32).Fill(8, 2),
        Structure(16, 16).Byte(3).Byte(3).Byte(3).Dword(0x1000000).Word(0xFFFE).Word(1),
        Structure(17, 17)
            .Word(16)
            .Word(0xFFFE)
            .Word(72)
            .Word(64)
            .Word(2048)
            .Byte(9)
            .Byte(0)
            .Text("DIMM 1")
            .Fill(10),
        Structure(132, 132).Dword(0xFFF00000).Dword(3).Byte(0).Byte(0).Byte(0).Byte(0),
        Structure(133, 133).Dword(0x100000).Dword(0x10000),
    });
}

// The whole tree, without the leaves that physical memory alone can give.
SearchResult WithoutSpd(SearchResult tree)
{
    const std::string name = "/SPD_RAW";
    for (auto node = tree.begin(); node != tree.end();) {
        std::vector<std::string>& items = node->second.Items;
        if (!items.empty() && items.back() == node->first + name)
            items.pop_back();
        const bool isSpd = node->first.size() > name.size() &&
                           node->first.compare(node->first.size() - name.size(), name.size(), name) == 0;
        node = isSpd ? tree.erase(node) : std::next(node);
    }
    return tree;
}

std::map<std::string, std::vector<std::string>> Texts(const SearchResult& tree)
{
    std::map<std::string, std::vector<std::string>> texts;
    for (const auto& [path, node] : tree)
        texts[path + (node.NodeType == NODE_INNER ? " (inner)" : "")] = node.Items;
    return texts;
}

struct RouteRow {
    bool IsBlock;
    unsigned char Major;
    unsigned char Minor;
};

class EveryRoute : public testing::TestWithParam<RouteRow> {};

TEST_P(EveryRoute, GivesTheTreeOfTheImage)
{
    const auto [isBlock, major, minor] = GetParam();
    const Bytes table = SmallMachine();
    if (isBlock)
        TheMachine.PutBlock(table, static_cast<std::uint32_t>(table.size()), major, minor);
    else
        TheMachine.PutTable(table, major, minor);
    ASSERT_EQ(Create(), 0);
    const std::size_t calls = TheMachine.Seen.size();

    Tree image(TestImages::Image(table, major, minor));
    EXPECT_EQ(TheMachine.Seen.size(), calls) << "an image is decoded without the machine";
    const SearchResult expected = image.Search("/SMBIOS");
    const SearchResult live = Search(SMBIOSProtocolImpl::CreateInstance(), "/SMBIOS");
    EXPECT_EQ(Texts(WithoutSpd(live)), Texts(expected));
    EXPECT_EQ(live.size(), expected.size() + (major * 10 + minor >= 27 ? 1 : 0));

    unsigned int address = 7;
    image.Object.GetBiosReservedMem(&address, nullptr);
    EXPECT_EQ(address, 0U);
}

constexpr RouteRow Routes[] = {
    {false, 2, 3}, {false, 2, 4}, {false, 2, 5}, {false, 2, 6}, {false, 2, 7}, {false, 2, 8}, {false, 3, 0},
    {true, 2, 3},  {true, 2, 4},  {true, 2, 5},  {true, 2, 6},  {true, 2, 7},  {true, 2, 8},  {true, 3, 0},
};

INSTANTIATE_TEST_SUITE_P(, EveryRoute, testing::ValuesIn(Routes), [](const auto& test) {
    return std::string(test.param.IsBlock ? "Block" : "EntryPoint") + std::to_string(test.param.Major) + "_" +
           std::to_string(test.param.Minor);
});

// Each mapping fails once, with the lock given back and the failure passed on; then nothing fails.
TEST(CreateInstance, StartsOverAfterAFailureAndThenAnswersAtOnce)
{
    const Bytes table = SmallMachine();
    TheMachine.PutTable(table);
    const std::vector<Events> mappings = {Mapped(SegmentAddress, SegmentLength),
                                          Mapped(TableAddress, static_cast<unsigned int>(table.size())),
                                          Mapped(0xFFF00000, 3)};
    const ResultStatus denied(RESULT_MAPPING_DENIED, "no way", "driver", _XCOMMAND(1));

    for (int site = 1; site <= 3; ++site) {
        const Events expected = Joined({mappings.begin(), mappings.begin() + site});
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
    EXPECT_EQ(TheMachine.Seen, Joined(mappings));
    TheMachine.Seen.clear();
    EXPECT_EQ(&SMBIOSProtocolImpl::CreateInstance(), &first);
    EXPECT_EQ(LiveLeaf("/SMBIOS/Type1/Manufacturer"), "Maker");
    EXPECT_EQ(TheMachine.Seen, Events());
}

// A failure behind the firmware block releases it; the next object has a block of its own.
TEST(CreateInstance, StartsOverOnTheFirmwareBlockToo)
{
    const Bytes table = SmallMachine();
    const auto length = static_cast<std::uint32_t>(table.size());
    TheMachine.PutBlock(table, length);
    TheMachine.MapFailure =
        std::make_exception_ptr(ResultStatus(RESULT_MAPPING_FAILED, "", "", XCOMMAND_NONE));
    TheMachine.FailingMap = 2; // the SPD block's
    EXPECT_EQ(Create(), RESULT_MAPPING_FAILED);
    EXPECT_EQ(Create(), 0);
    EXPECT_EQ(LiveLeaf("/SMBIOS/Type1/Manufacturer"), "Maker");
}

TEST(MappingLock, IsTracedOnDemandBeforeItIsTaken)
{
    const Bytes table = SmallMachine();
    TheMachine.PutTable(table);
    LOGGER::Logger::CreateInstance().TraceLocks = true;
    ASSERT_EQ(Create(), 0);

    const auto trace = [](const std::string& function) {
        return Events{Logged(function, "Locking at .\\SMBIOSProtocolImpl: "
                                       "Protocol::SMBIOS::SMBIOSProtocolImpl::" +
                                           function + ": LINE")};
    };
    EXPECT_EQ(TheMachine.Seen, Joined({trace("GetSMBiosEntryPtr"), Mapped(SegmentAddress, SegmentLength),
                                       trace("GetSMBiosEntryPtr"),
                                       Mapped(TableAddress, static_cast<unsigned int>(table.size())),
                                       trace("DumpMemorySPD"), Mapped(0xFFF00000, 3)}));
}

TEST(MappingLock, IsNoConditionForTheWork)
{
    TheMachine.PutTable(SmallMachine());
    TheMachine.LockIsFree = false;
    EXPECT_EQ(Create(), 0);
    EXPECT_EQ(TheMachine.Seen.size(), 9U) << "three mappings, each between taking and giving back";
}

TEST(LiveObject, LeavesItsMappingsToItsCopyAndStillAnswers)
{
    TheMachine.PutTable(SmallMachine());
    ASSERT_EQ(Create(), 0);
    SMBIOSProtocolImpl& live = SMBIOSProtocolImpl::CreateInstance();
    const SearchResult before = Search(live, "/SMBIOS");
    {
        SMBIOSProtocolImpl copy(live);
        EXPECT_EQ(Texts(Search(copy, "/SMBIOS")), Texts(before));
        unsigned int address = 0;
        copy.GetBiosReservedMem(&address, nullptr);
        EXPECT_EQ(address, 0x100000U);
    }
    EXPECT_EQ(Texts(Search(live, "/SMBIOS")), Texts(before));
}

} // namespace
