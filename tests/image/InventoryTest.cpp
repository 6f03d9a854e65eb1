// The inventories that are put together from structures: processors and memory.

#include "support/Parts.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

using namespace TestImages;

namespace {

using Lines = std::vector<std::string>;

/// The processors' marks by their indexes, and the count of the present ones of all.
std::string Processors(Tree& tree)
{
    const std::string list = "/SMBIOS/ProcessorInfo";
    Lines children = tree.Children(list);
    EXPECT_EQ(children.front(), "/TotalNoOfProcessor");
    EXPECT_EQ(children.back(), "/TotalNoOfProcessorPresent");
    std::string text;
    for (std::size_t i = 1; i + 1 < children.size(); ++i)
        text += children[i] + " " + tree.Leaf(list + children[i] + "/ProcessorPresent") + ", ";
    return text + tree.Leaf(list + children.back()) + " of " + tree.Leaf(list + children.front());
}

TEST(Processors, CountsAndMarks)
{
    const struct {
        std::vector<unsigned int> Status;
        std::string Summary;
    } cases[] = {
        {{}, "0 of 0"},
        {{0x00, 0x41}, "[1] False, [2] True, 1 of 2"},
        {{0x00, 0x01, 0xBF}, "[1] False, [2] False, [3] False, 0 of 3"}, // enabled, but the socket is empty
        {{0x40, 0x42, 0xC7}, "[1] True, [2] True, [3] True, 3 of 3"},
    };
    for (const auto& each : cases) {
        std::vector<Structure> table;
        for (const unsigned int status : each.Status)
            table.push_back(Processor(0x0400, 0xFFFF, 0xFFFF, status));
        Tree tree(Image(table));
        EXPECT_EQ(Processors(tree), each.Summary);
    }
    // One whose status lies past the end of the table is counted, but has no copy.
    Tree cut(
        ImageWithoutEnd(Join(Processor(0x0400).Finished(), StructureOf(4, 0x0401, "CPU2", 3).Finished())));
    EXPECT_EQ(Processors(cut), "[1] True, 1 of 2");
    EXPECT_FALSE(cut.Has("/SMBIOS/ProcessorInfo[2]"));
}

// The separators by which subtrees are copied ("4", "]") may stand in their texts.
TEST(Inventory, ACopyIsItsSourceAndTheMarks)
{
    Tree tree(Image({Processor(0x0464, 0x0746, 0xFFFF, 0x41, "CPU4[6]"), Cache(0x0746, "4]6"),
                     MemoryArray(0x1046, 0x1801), MemoryDevice(0x2000, 8, "X"),
                     MemoryDevice(0x1046, 16, "4]6", 0x1802), MemoryError(0x1801), MemoryError(0x1802)}));
    Lines processor = tree.Leaves("/SMBIOS/Type4[1]");
    processor.push_back("/ProcessorPresent = True");
    EXPECT_EQ(tree.Leaves("/SMBIOS/ProcessorInfo[1]"), processor);
    EXPECT_EQ(tree.Leaf("/SMBIOS/ProcessorInfo[1]/L1CacheHandle/Handle"), "0x0746");
    EXPECT_FALSE(tree.Has("/SMBIOS/ProcessorInfo[1]/ProcessorFamily_Raw"));
    EXPECT_FALSE(tree.Has("/SMBIOS/Type4[1]/ProcessorPresent"));

    Lines array = tree.Leaves("/SMBIOS/Type16[1]");
    for (const std::string& line : tree.Leaves("/SMBIOS/Type17[2]"))
        array.push_back("/MemoryDevice[1]" + line);
    array.push_back("/MemoryDevice[1]/DevicePresent = True");
    array.push_back("/TotalNoOfDevicePresent = 1");
    EXPECT_EQ(tree.Leaves("/SMBIOS/MemoryArray[1]"), array);
    EXPECT_FALSE(tree.Has("/SMBIOS/Type17[2]/DevicePresent"));
    EXPECT_FALSE(tree.Has("/SMBIOS/Type16[1]/MemoryDevice"));
}

/// Each array as "slot present, slot present: total".
Lines Summary(Tree& tree)
{
    Lines arrays;
    const std::string list = "/SMBIOS/MemoryArray";
    Lines indexes = tree.Children(list);
    EXPECT_EQ(indexes.front(), "/TotalNoOfArray");
    indexes.erase(indexes.begin());
    EXPECT_EQ(tree.Leaf(list + "/TotalNoOfArray"), std::to_string(indexes.size()));
    for (const std::string& index : indexes) {
        std::string text;
        const std::string devices = list + index + "/MemoryDevice";
        std::size_t number = 1;
        for (const std::string& device : tree.Children(devices)) {
            EXPECT_EQ(device, "[" + std::to_string(number++) + "]");
            const std::string mark = tree.Leaf(devices + device + "/DevicePresent");
            text += tree.Leaf(devices + device + "/DeviceLocator") + " " + mark + ", ";
        }
        arrays.push_back(text + tree.Leaf(list + index + "/TotalNoOfDevicePresent"));
    }
    return arrays;
}

TEST(Memory, DevicesOfEachArray)
{
    const struct {
        const char* Name;
        std::vector<Structure> Table;
        Lines Arrays;
    } cases[] = {
        {"nothing", {}, {}},
        {"no array", {MemoryDevice(1, 2048, "A")}, {}},
        {"every size but 0 is a module",
         {MemoryArray(1), MemoryDevice(1, 1, "A"), MemoryDevice(1, 0xFFFF, "C"),
          MemoryDevice(1, 0x8000, "D")},
         {"A True, C True, D True, 3"}},
        {"mixed, devices ahead of their arrays",
         {MemoryDevice(2, 0, "B1"), MemoryDevice(1, 8, "A1"), MemoryArray(1), MemoryDevice(2, 8, "B2"),
          MemoryArray(2), MemoryDevice(1, 0, "A2")},
         {"A1 True, A2 False, 1", "B1 False, B2 True, 1"}},
        {"two arrays of one handle",
         {MemoryArray(7), MemoryArray(7), MemoryDevice(7, 8, "A")},
         {"A True, 1", "A True, 1"}},
        {"the handles 0 and FFFFh",
         {MemoryArray(0), MemoryArray(0xFFFF), MemoryDevice(0, 8, "A"), MemoryDevice(0xFFFF, 0, "B")},
         {"A True, 1", "B False, 0"}},
        {"handles of which one begins like the other",
         {MemoryArray(1), MemoryArray(12), MemoryDevice(12, 8, "A"), MemoryDevice(123, 8, "B")},
         {"0", "A True, 1"}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Name);
        Tree tree(Image(each.Table));
        EXPECT_EQ(Summary(tree), each.Arrays);
    }
}

// A device whose size lies past the end of the table belongs to no array.
TEST(Memory, ADeviceWithoutSize)
{
    const Bytes whole = Join(MemoryArray(1).Finished(), MemoryDevice(1, 8, "A").Finished());
    Tree tree(
        ImageWithoutEnd(Join(whole, StructureOf(17, 0x1101, Word{1}, Word{0xFFFF}, Word{0}).Finished())));
    EXPECT_EQ(tree.Leaf("/SMBIOS/Type17[2]/MemoryArrayHandle"), "1");
    EXPECT_FALSE(tree.Has("/SMBIOS/Type17[2]/Size"));
    EXPECT_EQ(Summary(tree), (Lines{"A True, 1"}));
}

} // namespace
