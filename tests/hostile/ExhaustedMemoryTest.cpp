// An allocation fails, whichever it is: std::bad_alloc arrives, nothing is lost, no half object remains.

#include "bench/CountingNew.h"
#include "samples/TableText.h"
#include "support/FakeSystem.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>

using namespace Images;
using FakeSystem::TheMachine;

namespace {

// Has links, texts behind the short string optimisation, an inventory of each kind, an SPD block, and for the
// newest catalogue records, a packed value, and a structure without a table.
const Bytes Small = FromText(R"(4 1: 40*"x" 3 1 40*"y" @0x11 0x87 @0x18 0x41 @0x1A w:2 w:0xFFFF w:9 @0x2A
7 2: 40*"x" @0x13
16 3: @11 w:5 w:1
17 4: w:3 w:5 @0x20
18 5: @0x17
132 6: d:0x1000 d:4 d:0
133 7: d:1 d:2
9 8: 40*"s" @0x12 1 w:0 1 0x28 4 5 8 w:0 3
221 9: 1 +40*"z"
end)");

// Does `work` with its first allocation failing, then with its second, until it does it without a failure.
// After each failure, `check` looks at what `work` was working on. Prints how many failed.
void FailEachAllocation(const std::function<void()>& work, const std::function<void()>& check)
{
    work(); // what is made once a process is made now
    std::size_t arrived = 0;
    for (std::size_t n = 1;; ++n) {
        const std::size_t held = CountingNew::Held;
        CountingNew::FailAt = CountingNew::Count + n;
        try {
            work();
        } catch (const std::bad_alloc&) {
            ++arrived;
        }
        const bool hasFailed = CountingNew::Count >= CountingNew::FailAt;
        CountingNew::FailAt = 0;
        if (!hasFailed) {
            std::printf("%zu allocations failed, %zu of them reached the caller\n", n - 1, arrived);
            EXPECT_GE(arrived + 20, n - 1) << "a sort that gets no buffer does without; all others arrive";
            EXPECT_GT(arrived, 0U);
            return;
        }
        ASSERT_EQ(CountingNew::Held, held) << "allocation " << n;
        check();
        ASSERT_FALSE(testing::Test::HasFailure()) << "allocation " << n;
    }
}

TEST(ExhaustedMemory, ConstructionOnEachRoute)
{
    Bytes image = Image(Small, 2, 7);
    const auto decode = [&] {
        SMBIOSProtocolImpl(image.data(), static_cast<unsigned short>(image.size()), "/SMBIOS");
    };
    const auto noLockStays = [] { EXPECT_EQ(TheMachine.Locks, 0U); };
    FailEachAllocation(decode, noLockStays);
    const auto table = Protocol::SMBIOS::TableImage::FromBytes(image);
    FailEachAllocation([&] { SMBIOSProtocolImpl(table, Protocol::SMBIOS::Reading::Newest); }, noLockStays);
    TheMachine = FakeSystem::Machine::WithEntryPoint(Small);
    FailEachAllocation([] { FakeSystem::NewLiveObject(); }, noLockStays);
    TheMachine = FakeSystem::Machine::WithBlock(Small);
    FailEachAllocation([] { FakeSystem::NewLiveObject(); }, noLockStays);
}

TEST(ExhaustedMemory, SingletonStartsOver)
{
    TheMachine = FakeSystem::Machine::WithEntryPoint(Small);
    const SearchResult expected = Everything(*FakeSystem::NewLiveObject());
    for (std::size_t n = 1; n <= 50; ++n) {
        CountingNew::FailAt = CountingNew::Count + n;
        EXPECT_THROW(SMBIOSProtocolImpl::CreateInstance(), std::bad_alloc);
    }
    EXPECT_TRUE(AreEqual(Everything(SMBIOSProtocolImpl::CreateInstance()), expected));
}

// The root of the source has a path that a string cannot hold in itself: all else is shared.
TEST(ExhaustedMemory, SearchCopyAndAssignmentLeaveAllAsItWas)
{
    const std::string root = "/a root whose path takes memory of its own";
    const auto source = Decoded(Image(Small, 2, 7), root);
    const auto target = Decoded(Image(Small, 2, 7));
    const SearchResult expected = Everything(*source, root), before = Everything(*target);
    ASSERT_FALSE(AreEqual(before, expected));
    const auto checkSource = [&] { EXPECT_TRUE(AreEqual(Everything(*source, root), expected)); };

    const auto search = [&] {
        SearchResult nodes;
        source->SMBiosSearch(root, nodes);
    };
    FailEachAllocation(search, checkSource);
    FailEachAllocation([&] { SMBIOSProtocolImpl copy(*source); }, checkSource);
    const auto assign = [&] {
        SMBIOSProtocolImpl scratch(*target);
        scratch = *source;
    };
    FailEachAllocation(assign, checkSource);

    CountingNew::FailAt = CountingNew::Count + 1;
    EXPECT_THROW(*target = *source, std::bad_alloc);
    EXPECT_TRUE(AreEqual(Everything(*target), before));
}

} // namespace
