// Whatever the table, constructing an object and asking it for everything ends soon and takes limited memory.
// Processor time is printed, memory and work are tested: they are the same on every machine.

#include "hostile/CountingNew.h"
#include "hostile/FakeSystem.h"
#include "hostile/HostileImages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <map>

namespace {

using HostileImages::Bytes;
using Protocol::SMBIOS::SMBIOSProtocolImpl;
using Protocol::SMBIOS::TreeTooLarge;
using MakeObject = std::function<std::unique_ptr<SMBIOSProtocolImpl>()>;

constexpr std::size_t MaxMemory = 512U << 20;
constexpr std::size_t MaxAllocations = std::size_t{8} * TreeTooLarge::MaxWrites;

struct Cost {
    bool IsRefused = false;
    std::size_t Nodes = 0;
    std::size_t Writes = 0; ///< that made the tree which was found
};

// Each child was listed and stored, and so was, unlisted, the number beside a processor's family.
std::size_t WritesOf(SMBIOSProtocolImpl& object, const std::map<std::string, _XNode>& tree)
{
    std::size_t writes = 1; // the root
    for (const auto& [path, node] : tree) {
        if (node.NodeType == NODE_LEAF)
            continue;
        for (const std::string& child : node.Items) {
            std::map<std::string, _XNode> unlisted;
            if (child.find("ProcessorFamily") != std::string::npos)
                object.SMBiosSearch(child + "_Raw", unlisted);
            writes += 2 + unlisted.size();
        }
    }
    return writes;
}

// Constructs, searches and destroys; a test for each bound.
Cost Measure(const std::string& name, const MakeObject& make)
{
    Cost cost;
    const std::size_t heldBefore = CountingNew::Held();
    const std::size_t countBefore = CountingNew::Count();
    CountingNew::StartPeak();
    const std::clock_t start = std::clock();
    double seconds = 0;
    std::size_t peak = 0;
    std::size_t allocations = 0;
    const auto stop = [&] {
        seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        peak = CountingNew::Peak() - heldBefore;
        allocations = CountingNew::Count() - countBefore;
    };

    try {
        const auto object = make();
        std::map<std::string, _XNode> tree;
        object->SMBiosSearch("/SMBIOS", tree);
        stop();
        cost.Nodes = tree.size();
        cost.Writes = WritesOf(*object, tree);
    } catch (const TreeTooLarge& refusal) {
        stop();
        cost.IsRefused = true;
        const std::bad_alloc& base = refusal;
        EXPECT_NE(std::string(base.what()).find("1,048,576 writes"), std::string::npos) << base.what();
    }

    std::printf("%-55s %s %5.3f s %4zu MiB %8zu allocations %7zu nodes\n", name.c_str(),
                cost.IsRefused ? "refused" : "decoded", seconds, peak >> 20, allocations, cost.Nodes);
    EXPECT_LE(peak, MaxMemory) << name;
    EXPECT_LE(allocations, MaxAllocations) << name;
    EXPECT_EQ(CountingNew::Held(), heldBefore) << name;
    return cost;
}

Cost MeasureImage(const std::string& name, Bytes image)
{
    image.shrink_to_fit();
    EXPECT_LE(image.size(), 65'535U) << name;
    return Measure(name, [&] {
        return std::make_unique<SMBIOSProtocolImpl>(image.data(), static_cast<unsigned short>(image.size()),
                                                    "/SMBIOS");
    });
}

Cost MeasureMachine(const std::string& name, const FakeSystem::Machine& machine)
{
    FakeSystem::TheMachine = machine;
    return Measure(name, FakeSystem::NewLiveObject);
}

// The largest count whose tree has no more writes than are allowed. All writes grow evenly with the count.
unsigned int LargestAllowed(const std::function<Cost(unsigned int)>& measure)
{
    constexpr unsigned int Few = 2;
    constexpr unsigned int More = 6;
    const std::size_t writes = measure(Few).Writes;
    const std::size_t writesEach = (measure(More).Writes - writes) / (More - Few);
    return Few + static_cast<unsigned int>((TreeTooLarge::MaxWrites - writes) / writesEach);
}

} // namespace

TEST(Bounds, HoldForEveryHostileImage)
{
    for (const HostileImages::HostileImage& image : HostileImages::All())
        EXPECT_EQ(MeasureImage(image.Name, image.Image).IsRefused, image.IsRefused) << image.Name;
}

class TunedToTheLimit : public testing::TestWithParam<HostileImages::Family> {};
INSTANTIATE_TEST_SUITE_P(Bounds, TunedToTheLimit, testing::ValuesIn(HostileImages::Families),
                         [](const auto& test) {
                             std::string name = test.param.Name;
                             std::replace(name.begin(), name.end(), ' ', '_');
                             return name;
                         });

TEST_P(TunedToTheLimit, LargestIsDecodedAndNextIsRefused)
{
    const HostileImages::Family family = GetParam();
    const auto measure = [&](unsigned int count) {
        return MeasureImage(family.Name + (" " + std::to_string(count)), family.Build(count));
    };
    const unsigned int largest = LargestAllowed(measure);
    EXPECT_FALSE(measure(largest).IsRefused);
    EXPECT_TRUE(measure(largest + 1).IsRefused);
}

// The text of an SPD block is ten times as long as any other: of all trees, these are the largest.
TEST(Bounds, HoldForAFloodOfBlocksOnBothLiveRoutes)
{
    constexpr unsigned int Blocks = 20'000;
    const auto measure = [&](unsigned int copies) {
        const Bytes table = HostileImages::FloodOfBlocks(Blocks, copies);
        return MeasureMachine("flood of SPD blocks " + std::to_string(copies),
                              FakeSystem::Machine::WithEntryPoint(table, 2, 7));
    };
    const unsigned int largest = LargestAllowed(measure);
    EXPECT_FALSE(measure(largest).IsRefused);
    EXPECT_TRUE(measure(largest + 1).IsRefused);

    const Bytes table = HostileImages::FloodOfBlocks(Blocks, largest);
    const auto block = FakeSystem::Machine::WithBlock(table, 2, 7);
    EXPECT_FALSE(MeasureMachine("the same from the firmware's block", block).IsRefused);
    EXPECT_EQ(FakeSystem::TheMachine.Locks, 0U);
}
