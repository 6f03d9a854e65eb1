// The firmware's raw block, which serves where the BIOS segment has no entry point.

#include "support/FakeSystem.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

using namespace FakeSystem;
using namespace TestImages;

namespace {

std::size_t RefusedCalloc = ~0U, RefusedMalloc = ~0U; // the sizes of which there is no memory

} // namespace

// The linker sends the calls of calloc and malloc here.
extern "C" {
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_malloc(std::size_t size);

void* __wrap_calloc(std::size_t count, std::size_t size)
{
    return count * size == RefusedCalloc ? nullptr : __real_calloc(count, size);
}

void* __wrap_malloc(std::size_t size)
{
    return size == RefusedMalloc ? nullptr : __real_malloc(size);
}
}

namespace {

// All events of the route for a block of `size` bytes, in order.
Events WholeRoute(std::size_t size)
{
    const std::string route = "GetSMBiosEntryPtr";
    const std::string enters = Logged("GetRawSmbiosData", "Entering GetRawSmbiosData()");
    char hex[16];
    std::snprintf(hex, sizeof hex, "0x%x", static_cast<unsigned int>(size));
    return Joined({
        Mapped(SegmentAddress, SegmentLength),
        {
            Logged(route, "_SM_ not found,Alternate approach : Trying to to dump SMBIOS Raw data.."),
            enters,
            "firmware 52534D42 0 0",
            Logged(route, std::string("Success in getting Raw SMBIOS Data length : ") + hex),
            enters,
            "firmware 52534D42 0 " + std::to_string(size),
            Logged(route, std::string("Success in getting Raw SMBIOS Data ( Total : ") + hex + " Bytes )"),
            Logged(route, "Successfully copied Raw SMBIOS Data"),
        },
    });
}

TEST(FirmwareBlock, LogsEachStepAndFailsWhereItStops)
{
    // The first events of the whole route, up to the one named, and what follows there.
    constexpr std::size_t Queried = 7, Fetched = 9, ToldTotal = 10, Copied = 11;
    const auto none = [] {};
    const auto fetchGives = [](unsigned long count, unsigned long error) {
        return [count, error] {
            TheMachine.FetchResult = count;
            TheMachine.SystemError = error;
        };
    };
    const std::string failed = "Failed to get Raw SMBIOS Data";
    // Version 0.0 or 9.9: a block that is read ends in 1111.
    const struct {
        const char* Name;
        std::size_t BlockSize;
        std::function<void()> Trouble;
        std::size_t Reached;
        std::string LastLine;
        int Code;
    } rows[] = {
        {"read", 4999, none, Copied, "", 1111},
        {"header alone", 8, none, Copied, "", 1111},
        {"no room for the header", 7, none, Fetched, failed, 1013},
        {"no block", 0, none, Fetched, failed, 1013},
        {"no block and no reason", 0, [] { TheMachine.SystemError = 0; }, Fetched, failed, 1013},
        {"fetch fails", 4999, fetchGives(0, 122), Fetched, failed, 1013},
        {"fetch gives nothing without a reason", 4999, fetchGives(0, 0), Copied, "", 1111},
        {"fetch gives less than it said", 4999, fetchGives(100, 122), Copied, "", 1111},
        {"no memory to fetch into", 4999, [] { RefusedCalloc = 4999; }, Queried,
         "Smbios Buffer allocation failed", 1006},
        {"no memory to keep it", 4999, [] { RefusedMalloc = 4999; }, ToldTotal, "", 1006},
    };
    for (const auto& row : rows) {
        TheMachine = Machine::WithBlock(Bytes(4991), 9, 9);
        TheMachine.Block.resize(row.BlockSize);
        row.Trouble();
        EXPECT_EQ(Create(), row.Code) << row.Name;
        RefusedCalloc = RefusedMalloc = ~0U;

        Events expected = WholeRoute(row.BlockSize);
        expected.resize(row.Reached);
        if (!row.LastLine.empty())
            expected.push_back(Logged("GetSMBiosEntryPtr", row.LastLine));
        EXPECT_EQ(TheMachine.Seen, expected) << row.Name;
    }
}

// Two structures and no end structure: the walk ends where the length's low 16 bits say, and never leaves the
// block.
TEST(FirmwareBlock, HasALength)
{
    const Bytes first = StructureOf(10, 1, 3, "first").Finished();
    const struct {
        const char* Name;
        std::size_t Offset; ///< of the byte in the length that is set so
        unsigned char Value;
        std::string Second;
    } rows[] = {
        {"shorter than the block", 4, static_cast<unsigned char>(first.size()), "(no node)"},
        {"with a high half", 6, 3, "second"},
        {"past the block", 5, 0x80, "second"},
    };
    for (const auto& row : rows) {
        TheMachine = Machine::WithBlock(Join(first, StructureOf(10, 2, 3, "second").Finished()));
        TheMachine.Block[row.Offset] = row.Value;
        Tree tree(*NewLiveObject());
        EXPECT_EQ(tree.Leaf("/SMBIOS/Type10[1]/DescriptionString"), "first") << row.Name;
        EXPECT_EQ(tree.Leaf("/SMBIOS/Type10[2]/DescriptionString"), row.Second) << row.Name;
    }
}

} // namespace
