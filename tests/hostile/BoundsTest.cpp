// Whatever the table, constructing an object and asking it for everything ends soon and takes limited memory.
// Processor time is printed, memory and work are tested: they are the same on every machine.

#include "hostile/CountingNew.h"
#include "hostile/HostileImages.h"
#include "support/FakeSystem.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <ctime>
#include <functional>

using Protocol::SMBIOS::TreeTooLarge;

namespace {

constexpr std::size_t MaxMemory = 512U << 20;
constexpr std::size_t MaxAllocations = std::size_t{8} * TreeTooLarge::MaxWrites;

// Constructs, searches and destroys; a test for each bound. Gives whether the table was refused.
bool IsRefused(const std::string& name, const std::function<std::unique_ptr<SMBIOSProtocolImpl>()>& make)
{
    const std::size_t held = CountingNew::Held, count = CountingNew::Count;
    CountingNew::Peak = held;
    const std::clock_t start = std::clock();
    bool isRefused = false;
    try {
        const auto object = make();
        SearchResult tree;
        object->SMBiosSearch("/SMBIOS", tree);
    } catch (const TreeTooLarge& refusal) {
        isRefused = true;
        const std::bad_alloc& base = refusal;
        EXPECT_NE(std::string(base.what()).find("1,048,576 writes"), std::string::npos) << base.what();
    }
    const std::size_t peak = CountingNew::Peak - held, allocations = CountingNew::Count - count;
    std::printf("%-55s %s %5.3f s %4zu MiB %8zu allocations\n", name.c_str(),
                isRefused ? "refused" : "decoded", static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC,
                peak >> 20, allocations);
    EXPECT_LE(peak, MaxMemory) << name;
    EXPECT_LE(allocations, MaxAllocations) << name;
    EXPECT_EQ(CountingNew::Held, held) << name;
    return isRefused;
}

bool IsRefused(const std::string& name, const TestImages::Bytes& image)
{
    EXPECT_LE(image.size(), 65'535U) << name;
    return IsRefused(name, [&] { return Decoded(image); });
}

bool IsRefused(const std::string& name, const FakeSystem::Machine& machine)
{
    FakeSystem::TheMachine = machine;
    return IsRefused(name, FakeSystem::NewLiveObject);
}

TEST(Bounds, HoldForEveryHostileImage)
{
    for (const HostileImages::HostileImage& each : HostileImages::All())
        EXPECT_EQ(IsRefused(each.Name, each.Image), each.IsRefused) << each.Name;
}

TEST(Bounds, HoldForTheLargestTreesOfEachFamily)
{
    for (const auto& [name, build, largest] : HostileImages::Families) {
        EXPECT_FALSE(IsRefused(name, build(largest))) << name;
        EXPECT_TRUE(IsRefused(name, build(largest + 1))) << name << ": one more";
    }
}

// The text of an SPD block is ten times as long as any other: of all trees, these are the largest.
TEST(Bounds, HoldForAFloodOfBlocksOnBothLiveRoutes)
{
    constexpr unsigned int Blocks = 20'000, LargestCopies = 65;
    using FakeSystem::Machine;
    const auto largest = HostileImages::FloodOfBlocks(Blocks, LargestCopies);
    const auto larger = HostileImages::FloodOfBlocks(Blocks, LargestCopies + 1);
    EXPECT_FALSE(IsRefused("flood of SPD blocks", Machine::WithEntryPoint(largest)));
    EXPECT_FALSE(IsRefused("the same from the firmware's block", Machine::WithBlock(largest)));
    EXPECT_TRUE(IsRefused("one copy more", Machine::WithEntryPoint(larger)));
    EXPECT_EQ(FakeSystem::TheMachine.Locks, 0U);
}

} // namespace
