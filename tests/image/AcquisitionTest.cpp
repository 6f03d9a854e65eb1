// Which images are taken, with which catalogue, and how the others are refused.

#include "support/Tree.h"

#include <gtest/gtest.h>

using namespace TestImages;

namespace {

constexpr std::size_t LengthOffset = 5;

Bytes With(Bytes bytes, std::size_t offset, unsigned char value)
{
    bytes.at(offset) = value;
    return bytes;
}

// The entry point with another length, and a checksum that holds again where zeros follow.
Bytes WithLength(Bytes entryPoint, unsigned char length)
{
    constexpr std::size_t Checksum = 4;
    entryPoint[Checksum] =
        static_cast<unsigned char>(entryPoint[Checksum] + entryPoint[LengthOffset] - length);
    return With(entryPoint, LengthOffset, length);
}

// The count of strings in the image's type 11 structure, or the code of its refusal.
std::string Outcome(Bytes image)
{
    image.shrink_to_fit(); // a read beyond the image leaves its heap block
    try {
        return Tree(std::move(image)).Leaf("/SMBIOS/Type11/StringCount");
    } catch (const ResultStatus& status) {
        return std::to_string(status.Code());
    }
}

TEST(Acquisition, EntryPoints)
{
    constexpr std::size_t LargestImage = 65535;
    const Bytes table = Table({StructureOf(11, 1, 3)}), good = EntryPoint(2, 7);
    const Bytes damaged = With(good, 0x0F, 0x80), longer = WithLength(good, 33);
    const Bytes toLargest(LargestImage - table.size() - good.size()),
        toOddOffset(table.size() % 2 == 0 ? 1 : 2);
    const struct {
        const char* Name;
        Bytes Image;
        std::string Outcome;
    } cases[] = {
        {"nothing", {}, "1013"},
        {"one byte", {0x5F}, "1013"},
        {"no anchor", table, "1013"},
        {"64-bit anchor only", Join(table, EntryPoint64(3, 0, 16)), "1013"},
        {"behind the table", Join(table, good), "3"},
        {"at an odd offset", Join(Join(table, toOddOffset), good), "3"},
        {"at the end of the largest image", Join(Join(table, toLargest), good), "3"},
        {"at the start, where the table should be", Join(good, table), "(no node)"},
        {"damaged", Join(table, damaged), "1024"},
        {"damaged ahead of a good one", Join(Join(table, damaged), good), "1024"},
        {"good ahead of a damaged one", Join(Join(table, good), damaged), "3"},
        {"with an address and a length", Join(table, EntryPoint(2, 7, 0xFFFF, 0xFFFFFFFF)), "3"},
        {"with the length 0", Join(table, With(damaged, LengthOffset, 0)), "3"},
        {"with a length to the image's end", Join(Join(table, longer), {0, 0}), "3"},
        {"with a length past the image's end", Join(Join(table, longer), {0}), "1013"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(Outcome(each.Image), each.Outcome) << each.Name;

    for (std::ptrdiff_t size = 0; size < static_cast<std::ptrdiff_t>(good.size()); ++size)
        EXPECT_EQ(Outcome(Join(table, Bytes(good.begin(), good.begin() + size))), "1013") << size;
    EXPECT_THROW(Protocol::SMBIOS::SMBIOSProtocolImpl(nullptr, 0, "/R"), ResultStatus);
}

TEST(Acquisition, VersionSelectsTheCatalogue)
{
    const std::vector<std::string> early = {
        "/Type0",  "/Type1",  "/Type2",  "/Type3",  "/Type4",         "/Type7",      "/Type8",
        "/Type9",  "/Type10", "/Type11", "/Type13", "/Type16",        "/Type17",     "/Type18",
        "/Type19", "/Type24", "/Type32", "/Type38", "/ProcessorInfo", "/MemoryArray"};
    std::vector<std::string> late = early;
    late.insert(late.end() - 2, {"/Type132", "/Type133"});
    using Versions = std::vector<std::pair<unsigned char, unsigned char>>;
    const auto imageOf = [](const auto& version) { return Image(Table({}), version.first, version.second); };

    for (const auto& version : Versions{{2, 3}, {2, 4}, {2, 5}, {2, 6}})
        EXPECT_EQ(Tree(imageOf(version)).Children("/SMBIOS"), early) << int{version.second};
    for (const auto& version : Versions{{2, 7}, {2, 8}, {3, 0}})
        EXPECT_EQ(Tree(imageOf(version)).Children("/SMBIOS"), late) << int{version.second};
    for (const auto& version : Versions{{0, 0},
                                        {1, 7},
                                        {2, 0},
                                        {2, 1},
                                        {2, 2},
                                        {2, 9},
                                        {2, 30},
                                        {2, 70},
                                        {2, 255},
                                        {3, 1},
                                        {3, 7},
                                        {4, 0},
                                        {12, 3},
                                        {20, 7},
                                        {27, 0},
                                        {50, 55},
                                        {2, '7'},
                                        {'2', '7'}})
        EXPECT_EQ(Outcome(imageOf(version)), "1111") << int{version.first} << "." << int{version.second};
}

TEST(Acquisition, FailuresSayWhatToDo)
{
    const struct {
        Bytes Image;
        int Code;
        const char* Hint;
    } cases[] = {
        {Table({}), RESULT_NO_TABLE, "_SM_"},
        {With(Image(Table({}), 2, 7), 20, 0xAA), RESULT_BAD_CHECKSUM, "entry point"},
        {Image(Table({}), 3, 1), RESULT_UNSUPPORTED_VERSION, "2.3 to 2.8 and 3.0"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Code);
        try {
            Tree tree(each.Image);
            ADD_FAILURE() << "accepted";
        } catch (const std::exception& failure) {
            const ResultStatus status = dynamic_cast<const ResultStatus&>(failure);
            EXPECT_EQ(status.Code(), each.Code);
            EXPECT_NE(status.Message().find(each.Hint), std::string::npos) << status.Message();
            EXPECT_EQ(status.Message().find("  "), std::string::npos) << status.Message();
            EXPECT_EQ(failure.what(), status.Message());
            EXPECT_EQ(status.Source(), "");
            EXPECT_EQ(status.Command(), XCOMMAND_NONE);
        }
    }
}

} // namespace
