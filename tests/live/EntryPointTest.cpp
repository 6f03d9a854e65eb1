// The search of the BIOS segment for the entry point, and what is made of it.

#include "Machine.h"

#include <gtest/gtest.h>

#include <numeric>

using TestImages::Bytes;
using TestImages::EntryPoint;

namespace {

// A version without a catalogue: construction ends behind acquisition, and the next row can begin.
constexpr unsigned char Major = 9;
constexpr unsigned char Minor = 9;

Bytes Anchor(std::uint32_t address)
{
    return EntryPoint(Major, Minor, 57, address);
}

Bytes WithByte(Bytes bytes, std::size_t offset, unsigned char value)
{
    bytes.at(offset) = value;
    return bytes;
}

// Gives the entry point `length` bytes, of value 1 where there are none yet, and a right checksum.
Bytes WithLength(Bytes bytes, unsigned char length)
{
    bytes.resize(length, 1);
    bytes[5] = length;
    bytes[4] = 0;
    bytes[4] = static_cast<unsigned char>(0U - std::accumulate(bytes.begin(), bytes.end(), 0U));
    return bytes;
}

// What construction did behind the segment's mapping: the table's mapping, the firmware block, or a failure.
std::string Road()
{
    const int code = Create();
    const Events segment = Mapped(SegmentAddress, SegmentLength);
    Events& seen = TheMachine.Seen;
    if (seen.size() < segment.size() || !std::equal(segment.begin(), segment.end(), seen.begin()))
        return "not the segment first: " + testing::PrintToString(seen);
    const Events behind(seen.begin() + static_cast<std::ptrdiff_t>(segment.size()), seen.end());
    if (behind.empty())
        return "code " + std::to_string(code);
    if (behind[0] == Logged("GetSMBiosEntryPtr",
                            "_SM_ not found,Alternate approach : Trying to to dump SMBIOS Raw data.."))
        return "firmware block";
    return behind.size() == 3 ? behind[1] : testing::PrintToString(behind);
}

struct Placed {
    std::size_t Offset;
    Bytes EntryPoint;
};

struct Row {
    const char* Name;
    std::vector<Placed> Anchors;
    const char* Road;
};

TEST(EntryPointSearch, TakesTheFirstUsableAnchorAndNoOther)
{
    const Bytes sound = Anchor(0x1000);
    const Bytes other = Anchor(0x2000);
    const Bytes damaged = WithByte(sound, 4, static_cast<unsigned char>(sound[4] + 1));
    const Bytes longest = WithLength(sound, 255);
    Bytes newForm = TestImages::EntryPoint64(Major, Minor, 57);
    newForm.resize(40);

    const Row rows[] = {
        {"nothing", {}, "firmware block"},
        {"first byte", {{0, sound}}, "map 1000 57"},
        {"on a step of 4 that is none of 16", {{0x104, sound}}, "map 1000 57"},
        {"off step by 1", {{0x101, sound}}, "firmware block"},
        {"off step by 2", {{0x102, sound}}, "firmware block"},
        {"off step, then on step", {{0x101, sound}, {0x204, other}}, "map 2000 57"},
        {"last place with room", {{65504, WithLength(sound, 30)}}, "map 1000 57"},
        {"no room for the checksum's last byte", {{65504, sound}}, "firmware block"},
        {"no room for the table's address", {{65508, WithLength(sound, 26)}}, "firmware block"},
        {"last place of an anchor", {{65528, sound}}, "firmware block"},
        {"sound one behind one without room", {{65300, longest}, {65400, other}}, "map 2000 57"},
        {"two: the first counts", {{0x40, sound}, {0x100, other}}, "map 1000 57"},
        {"two: the first is damaged", {{0x40, damaged}, {0x100, other}}, "code 1024"},
        {"damaged", {{0x40, damaged}}, "code 1024"},
        {"length 0 sums nothing", {{0x40, WithByte(damaged, 5, 0)}}, "map 1000 57"},
        {"length 255", {{0x40, longest}}, "map 1000 57"},
        {"length 255, last byte damaged", {{0x40, WithByte(longest, 254, 2)}}, "code 1024"},
        {"junk behind its length", {{0x40, sound}, {0x40 + 31, {7}}}, "map 1000 57"},
        {"second anchor damaged", {{0x40, WithLength(WithByte(sound, 16, '#'), 31)}}, "map 1000 57"},
        {"table off any alignment", {{0, Anchor(0xE1235)}}, "map E1235 57"},
        {"highest address, longest table",
         {{0, EntryPoint(Major, Minor, 0xFFFF, 0xFFFFFFFF)}},
         "map FFFFFFFF 65535"},
        {"empty table", {{0, EntryPoint(Major, Minor, 0, 0x1000)}}, "map 1000 0"},
        {"64-bit form", {{0, newForm}}, "firmware block"},
    };
    for (const Row& row : rows) {
        TheMachine = {};
        for (const Placed& anchor : row.Anchors)
            TheMachine.PutIntoSegment(anchor.Offset, anchor.EntryPoint);
        EXPECT_EQ(Road(), row.Road) << row.Name;
    }
}

TEST(EntryPointSearch, RefusesVersionsWithoutACatalogueOnEitherRoute)
{
    const Bytes table = TestImages::Table({});
    const unsigned char versions[][2] = {{2, 2},  {2, 9}, {3, 1}, {2, 50},
                                         {12, 3}, {2, 0}, {0, 0}, {255, 255}};
    for (const auto& [major, minor] : versions) {
        TheMachine = {};
        TheMachine.PutTable(table, major, minor);
        EXPECT_EQ(Create(), RESULT_UNSUPPORTED_VERSION) << +major << "." << +minor;

        TheMachine = {};
        TheMachine.PutBlock(table, 6, major, minor);
        EXPECT_EQ(Create(), RESULT_UNSUPPORTED_VERSION) << +major << "." << +minor;
    }
}

} // namespace
