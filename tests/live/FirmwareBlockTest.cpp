// The firmware's raw block, which serves where the BIOS segment has no entry point.

#include "Machine.h"

#include <gtest/gtest.h>

#include <functional>

using TestImages::Bytes;
using TestImages::Structure;

namespace {

const std::string Route = "GetSMBiosEntryPtr";
const std::string Call = "GetRawSmbiosData";

// All events of the route for a block of `size` bytes, in order.
Events WholeRoute(std::size_t size)
{
    char hex[16];
    std::snprintf(hex, sizeof hex, "0x%x", static_cast<unsigned int>(size));
    return Joined({
        Mapped(SegmentAddress, SegmentLength),
        {
            Logged(Route, "_SM_ not found,Alternate approach : Trying to to dump SMBIOS Raw data.."),
            Logged(Call, "Entering GetRawSmbiosData()"),
            "firmware 52534D42 0 0",
            Logged(Route, std::string("Success in getting Raw SMBIOS Data length : ") + hex),
            Logged(Call, "Entering GetRawSmbiosData()"),
            "firmware 52534D42 0 " + std::to_string(size),
            Logged(Route, std::string("Success in getting Raw SMBIOS Data ( Total : ") + hex + " Bytes )"),
            Logged(Route, "Successfully copied Raw SMBIOS Data"),
        },
    });
}

// The first events of the whole route, up to the one named, and what follows there.
constexpr std::size_t Queried = 7;
constexpr std::size_t Fetched = 9;
constexpr std::size_t ToldTotal = 10;
constexpr std::size_t Copied = 11;

struct Row {
    const char* Name;
    std::size_t BlockSize;
    std::function<void()> Trouble;
    std::size_t Reached;
    std::string LastLine;
    int Code;
};

TEST(FirmwareBlock, LogsEachStepAndFailsWhereItStops)
{
    const auto none = [] {};
    const auto fetchGives = [](unsigned long count, unsigned long error) {
        return [count, error] {
            TheMachine.FetchResult = count;
            TheMachine.SystemError = error;
        };
    };
    const std::string failed = "Failed to get Raw SMBIOS Data";
    // Version 0.0 or 9.9: a block that is read ends in 1111.
    const Row rows[] = {
        {"read", 4999, none, Copied, "", 1111},
        {"header alone", 8, none, Copied, "", 1111},
        {"no room for the header", 7, none, Fetched, failed, 1013},
        {"one byte", 1, none, Fetched, failed, 1013},
        {"no block", 0, [] { TheMachine.SystemError = 2; }, Fetched, failed, 1013},
        {"no block and no reason", 0, none, Fetched, failed, 1013},
        {"fetch fails", 4999, fetchGives(0, 122), Fetched, failed, 1013},
        {"fetch gives nothing without a reason", 4999, fetchGives(0, 0), Copied, "", 1111},
        {"fetch gives less than it said", 4999, fetchGives(100, 122), Copied, "", 1111},
        {"no memory to fetch into", 4999, [] { TheMachine.RefusedCalloc = 4999; }, Queried,
         "Smbios Buffer allocation failed", 1006},
        {"no memory to keep it", 4999, [] { TheMachine.RefusedMalloc = 4999; }, ToldTotal, "", 1006},
    };
    for (const Row& row : rows) {
        TheMachine = {};
        TheMachine.PutBlock(Bytes(4991), 4991, 9, 9);
        TheMachine.FirmwareBlock.resize(row.BlockSize);
        row.Trouble();
        EXPECT_EQ(Create(), row.Code) << row.Name;

        Events expected = WholeRoute(row.BlockSize);
        expected.resize(row.Reached);
        if (!row.LastLine.empty())
            expected.push_back(Logged(Route, row.LastLine));
        EXPECT_EQ(TheMachine.Seen, expected) << row.Name;
    }
}

struct LengthRow {
    const char* Name;
    std::uint32_t Added; ///< to the length of the first structure
    bool HasSecond;
};

class BlockLength : public testing::TestWithParam<LengthRow> {};

// Two structures and no end structure: the walk ends where the length says, and never leaves the block.
TEST_P(BlockLength, CountsByItsLow16BitsWithinTheBlock)
{
    Bytes table = Structure(2, 1).Text("first").Fill(9).Finished();
    const auto first = static_cast<std::uint32_t>(table.size());
    const Bytes second = Structure(2, 2).Text("second").Fill(9).Finished();
    table.insert(table.end(), second.begin(), second.end());
    TheMachine.PutBlock(table, first + GetParam().Added);

    ASSERT_EQ(Create(), 0);
    EXPECT_EQ(LiveLeaf("/SMBIOS/Type2[1]/Manufacturer"), "first");
    EXPECT_EQ(LiveLeaf("/SMBIOS/Type2[2]/Manufacturer"), GetParam().HasSecond ? "second" : "(no node)");
}

INSTANTIATE_TEST_SUITE_P(, BlockLength,
                         testing::Values(LengthRow{"ShorterThanBlock", 0, false},
                                         LengthRow{"High16BitsDropped", 0x30000, false},
                                         LengthRow{"BeyondBlock", 0x8000, true}),
                         [](const auto& test) { return std::string(test.param.Name); });

} // namespace
