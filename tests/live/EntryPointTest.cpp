// The search of the BIOS segment for the entry point, and what is made of it.

#include "support/FakeSystem.h"

#include <gtest/gtest.h>

using namespace FakeSystem;
using namespace TestImages;

namespace {

// A version without a catalogue: construction ends behind acquisition.
constexpr unsigned char Major = 9, Minor = 9;

// What construction did behind the segment's mapping: the table's mapping, the firmware block, or a failure.
std::string Road()
{
    const int code = Create();
    const Events segment = Mapped(SegmentAddress, SegmentLength), &seen = TheMachine.Seen;
    if (seen.size() < segment.size() || !std::equal(segment.begin(), segment.end(), seen.begin()))
        return "not the segment first: " + testing::PrintToString(seen);
    if (seen.size() == segment.size())
        return "code " + std::to_string(code);
    return seen.size() == 6 ? seen[4] : seen.size() > 6 ? seen[5] : testing::PrintToString(seen);
}

TEST(EntryPointSearch, TakesTheFirstUsableAnchorAndNoOther)
{
    const Bytes sound = EntryPoint(Major, Minor, 57, 0x1000), other = EntryPoint(Major, Minor, 57, 0x2000);
    const Bytes damaged = With(sound, 4, static_cast<unsigned char>(sound[4] + 1));
    const Bytes longest = WithLength(sound, 255);
    const char* const block = "firmware 52534D42 0 0";
    const struct {
        const char* Name;
        std::vector<std::pair<std::size_t, Bytes>> Anchors; ///< with their offsets
        const char* Road;
    } rows[] = {
        {"nothing", {}, block},
        {"first byte", {{0, sound}}, "map 1000 57"},
        {"on a step of 4 that is none of 16", {{0x104, sound}}, "map 1000 57"},
        {"off step by 1, then on step", {{0x101, sound}, {0x204, other}}, "map 2000 57"},
        {"off step by 2", {{0x102, sound}}, block},
        {"last place with room", {{65504, WithLength(sound, 30)}}, "map 1000 57"},
        {"no room for the checksum's last byte", {{65504, sound}}, block},
        {"no room for the table's address", {{65508, WithLength(sound, 26)}}, block},
        {"last place of an anchor", {{65528, sound}}, block},
        {"sound one behind one without room", {{65300, longest}, {65400, other}}, "map 2000 57"},
        {"two: the first counts", {{0x40, sound}, {0x100, other}}, "map 1000 57"},
        {"two: the first is damaged", {{0x40, damaged}, {0x100, other}}, "code 1024"},
        {"length 0 sums nothing", {{0x40, With(damaged, 5, 0)}}, "map 1000 57"},
        {"length 255", {{0x40, longest}}, "map 1000 57"},
        {"length 255, last byte damaged", {{0x40, With(longest, 254, 2)}}, "code 1024"},
        {"second anchor damaged", {{0x40, WithLength(With(sound, 16, '#'), 31)}}, "map 1000 57"},
        {"table off any alignment", {{0, EntryPoint(Major, Minor, 57, 0xE1235)}}, "map E1235 57"},
        {"highest address, longest table",
         {{0, EntryPoint(Major, Minor, 0xFFFF, 0xFFFFFFFF)}},
         "map FFFFFFFF 65535"},
        {"empty table", {{0, EntryPoint(Major, Minor, 0, 0x1000)}}, "map 1000 0"},
        {"64-bit form", {{0, EntryPoint64(Major, Minor, 57)}}, block},
    };
    for (const auto& [name, anchors, road] : rows) {
        Bytes segment(SegmentLength + 255);
        for (const auto& [offset, entryPoint] : anchors)
            std::copy(entryPoint.begin(), entryPoint.end(),
                      segment.begin() + static_cast<std::ptrdiff_t>(offset));
        TheMachine = {};
        TheMachine.Memory[SegmentAddress] = segment;
        EXPECT_EQ(Road(), road) << name;
    }
}

} // namespace
