// The walk over the table: where structures begin and end, and which strings they have.

#include "support/Tree.h"

#include <gtest/gtest.h>

using namespace TestImages;

namespace {

/// A system (type 1) whose four string fields are the strings 1 to 4.
Structure System()
{
    return StructureOf(1, 0x0100, 1, 2, 3, 4, Bytes(16), 6, 0, 0);
}

TEST(Walk, StringSets)
{
    const std::string s44(44, 'c'), s254(254, 'b'), s255(255, 'b'), s300 = s255 + "+" + s44;
    const struct {
        const char* Name;
        std::vector<std::string> Set;
        std::vector<std::string> Fields; ///< Manufacturer, ProductName, Version, SerialNo
    } cases[] = {
        {"none", {}, {"", "", "", ""}},
        {"an empty one first", {"", "B"}, {"", "B", "", ""}},
        {"bytes beyond ASCII", {"\xFF\x80\t", "B"}, {"\xFF\x80\t", "B", "", ""}},
        {"255 characters, of which a field shows 254", {s255, "B"}, {s254, "B", "", ""}},
        {"300 characters: two strings", {s300, "B"}, {s254, s44, "B", ""}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Name);
        Structure system = System();
        for (const std::string& text : each.Set)
            system.MoreText(text);
        Tree tree(Image({system, StructureOf(11, 0x0B00, 7)}));
        const char* const names[] = {"/Manufacturer", "/ProductName", "/Version", "/SerialNo"};
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_EQ(tree.Leaf("/SMBIOS/Type1" + std::string(names[i])), each.Fields[i]) << names[i];
        EXPECT_EQ(tree.Leaf("/SMBIOS/Type11/StringCount"), "7") << "the structure behind";
    }
}

// The terminator of a string of 256 characters is taken for the end of the set; the next string is read as a
// structure: type 11, length 5.
TEST(Walk, AStringOf256CharactersEndsTheSet)
{
    Tree tree(Image({System().MoreText(std::string(256, 'a')).MoreText("\x0B\x05\x01\x01\x09")}));
    EXPECT_EQ(tree.Leaf("/SMBIOS/Type1/ProductName"), "");
    EXPECT_EQ(tree.Leaf("/SMBIOS/Type11/StringCount"), "9");
}

TEST(Walk, Ends)
{
    const Bytes strings = StructureOf(11, 0x0B00, 7).Finished();
    const Bytes end = Table({});
    const struct {
        const char* Name;
        Bytes Table;
        std::string StringCount; ///< of the type 11 structure
    } cases[] = {
        {"at an end structure in front", Join(end, strings), "(no node)"},
        {"at the first end structure", Join(Join(strings, end), StructureOf(11, 1, 9).Finished()), "7"},
        {"at the type byte 127 alone", Join(strings, {127}), "7"},
        {"not at type 126", Join(StructureOf(126, 1, 9).Finished(), Join(strings, end)), "7"},
        {"not at a length of 2: the strings begin at the handle", Join({5, 2, 0, 0}, strings), "7"},
        {"not at a length of 0 of a read type", Join({9, 0, 0}, strings), "7"},
        {"at a length beyond the table", Join({5, 255, 0, 0}, strings), "(no node)"},
        {"at a string set without end", Join({5, 4, 0, 0, 'A'}, Bytes(900, 'B')), "(no node)"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(Tree(ImageWithoutEnd(each.Table)).Leaf("/SMBIOS/Type11/StringCount"), each.StringCount)
            << each.Name;
}

// However much of the last structure is missing, the complete ones stay, and no byte behind the image counts.
TEST(Walk, ATableCutShortKeepsItsCompleteStructures)
{
    const Bytes first = StructureOf(10, 1, 3, "Video").Finished();
    const Bytes both = Join(first, StructureOf(10, 2, 7, "Sound", "x").Finished());
    for (std::size_t size = 0; size <= both.size(); ++size) {
        Tree tree(ImageWithoutEnd(Bytes(both.begin(), both.begin() + static_cast<std::ptrdiff_t>(size))));
        EXPECT_EQ(tree.Children("/SMBIOS/Type10").size(),
                  (size >= first.size() ? 1U : 0U) + (size == both.size() ? 1U : 0U))
            << size;
    }
}

// Whatever stands between them and whichever handles they have; the thousandth has four digits.
TEST(Walk, InstancesStandInTableOrder)
{
    std::vector<Structure> table;
    for (int n = 1; n <= 1000; ++n) {
        const auto handle = static_cast<std::uint16_t>(2000 - n / 2);
        table.push_back(StructureOf(10, handle, 3, "d" + std::to_string(n)));
        table.push_back(StructureOf(n % 2 == 0 ? 5 : 11, 1, 1));
    }
    Tree tree(Image(table));
    const std::vector<std::string> devices = tree.Children("/SMBIOS/Type10");
    ASSERT_EQ(devices.size(), 1000U);
    for (const std::size_t n : {1U, 2U, 1000U}) {
        EXPECT_EQ(devices[n - 1], "[" + std::to_string(n) + "]");
        EXPECT_EQ(tree.Leaf("/SMBIOS/Type10" + devices[n - 1] + "/DescriptionString"),
                  "d" + std::to_string(n));
    }
}

// A field lies where the fields before it end, whatever the structure's length byte says.
TEST(Layout, AShortStructureIsReadOnIntoWhatFollows)
{
    Tree tree(Image({StructureOf(2, 1, "AB", "C", "", "", "", 0, "", Word{0}, 0x0A, 0)}));
    EXPECT_EQ(tree.Leaf("/SMBIOS/Type2[1]/NumOfObjectHandles"), "0");
    EXPECT_EQ(tree.Leaf("/SMBIOS/Type2[1]/ContainObjectHandles"), std::to_string('A' | 'B' << 8));
}

// Its string set's two NULs are read as fields too.
TEST(Layout, FieldsPastTheEndOfTheTableHaveNoNode)
{
    using Names = std::vector<std::string>;
    const struct {
        Bytes Last;
        std::string Path;
        Names Children;
    } cases[] = {
        {StructureOf(133, 1, Word{0x0102}).Finished(), "/Type133", {"/Address"}},
        {StructureOf(133, 1, Dword{1}, 2).Finished(), "/Type133", {"/Address"}},
        {StructureOf(133, 1, Dword{1}, Word{2}).Finished(), "/Type133", {"/Address", "/Size"}},
        {StructureOf(32, 1, Bytes(13)).Finished(), "/Type32", {"/Reserved"}},
        {StructureOf(10, 1).Finished(), "/Type10[1]", {"/DeviceType", "/DescriptionString"}},
        {{10, 3, 1, 0, 0}, "/Type10[1]", {"/DeviceType"}},
    };
    for (const auto& each : cases) {
        Tree tree(ImageWithoutEnd(each.Last));
        EXPECT_EQ(tree.Children("/SMBIOS" + each.Path), each.Children);
        EXPECT_EQ(tree.Search("/SMBIOS" + each.Path).size(), each.Children.size() + 1);
    }
}

} // namespace
