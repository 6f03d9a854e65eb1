// Which images are taken, with which catalogue, and how the others are refused.

#include "support/Tree.h"

#include <gtest/gtest.h>

using namespace TestImages;

namespace {

// The count of strings in the image's type 11 structure, or the code of its refusal.
std::string Outcome(const Bytes& image)
{
    try {
        return Tree(image).Leaf("/SMBIOS/Type11/StringCount");
    } catch (const ResultStatus& status) {
        return std::to_string(status.Code());
    }
}

TEST(Acquisition, EntryPoints)
{
    constexpr std::size_t LargestImage = 65535;
    const Bytes table = Table({StructureOf(11, 1, 3)}), good = EntryPoint(2, 7);
    const Bytes damaged = With(good, 0x0F, 0x80);
    Bytes longer = WithLength(good, 33);
    longer.resize(good.size());
    const Bytes toLargest(LargestImage - table.size() - good.size()),
        toOddOffset(table.size() % 2 == 0 ? 1 : 2);
    const struct {
        const char* Name;
        Bytes Image;
        std::string Outcome;
    } cases[] = {
        {"nothing", {}, "1013"},
        {"no anchor", table, "1013"},
        {"64-bit anchor only", Join(table, EntryPoint64(3, 0, 16)), "1013"},
        {"at an odd offset", Join(Join(table, toOddOffset), good), "3"},
        {"at the end of the largest image", Join(Join(table, toLargest), good), "3"},
        {"at the start, where the table should be", Join(good, table), "(no node)"},
        {"damaged ahead of a good one", Join(Join(table, damaged), good), "1024"},
        {"good ahead of a damaged one", Join(Join(table, good), damaged), "3"},
        {"with an address and a length", Join(table, EntryPoint(2, 7, 0xFFFF, 0xFFFFFFFF)), "3"},
        {"with the length 0", Join(table, With(damaged, 5, 0)), "3"},
        {"with a length to the image's end", Join(Join(table, longer), {0, 0}), "3"},
        {"with a length past the image's end", Join(Join(table, longer), {0}), "1013"},
        {"shorter than its version", Join(table, With({good.begin(), good.begin() + 7}, 5, 0)), "1013"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(Outcome(each.Image), each.Outcome) << each.Name;

    for (std::ptrdiff_t size = 0; size < static_cast<std::ptrdiff_t>(good.size()); ++size)
        EXPECT_EQ(Outcome(Join(table, Bytes(good.begin(), good.begin() + size))), "1013") << size;
    EXPECT_THROW(SMBIOSProtocolImpl(nullptr, 0, "/R"), ResultStatus);
}

TEST(Acquisition, VersionSelectsTheCatalogue)
{
    using Versions = std::vector<std::pair<unsigned char, unsigned char>>;
    const auto imageOf = [](const auto& version) { return Image(Table({}), version.first, version.second); };
    for (const auto& version : Versions{{2, 3}, {2, 4}, {2, 5}, {2, 6}, {2, 7}, {2, 8}, {3, 0}}) {
        const bool isLate = version >= std::make_pair<unsigned char, unsigned char>(2, 7);
        EXPECT_EQ(Tree(imageOf(version)).Children("/SMBIOS").size(), isLate ? 22U : 20U);
    }
    for (const auto& version : Versions{
             {0, 0}, {1, 7}, {2, 0}, {2, 2}, {2, 9}, {2, 30}, {3, 1}, {4, 0}, {12, 3}, {27, 0}, {2, '7'}})
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
        try {
            Tree tree(each.Image);
            ADD_FAILURE() << "accepted: " << each.Code;
        } catch (const std::exception& failure) {
            const ResultStatus status = dynamic_cast<const ResultStatus&>(failure);
            EXPECT_EQ(status.Code(), each.Code);
            EXPECT_NE(status.Message().find(each.Hint), std::string::npos) << status.Message();
            EXPECT_EQ(failure.what(), status.Message());
            EXPECT_EQ(status.Source(), "");
            EXPECT_EQ(status.Command(), XCOMMAND_NONE);
        }
    }
}

} // namespace
