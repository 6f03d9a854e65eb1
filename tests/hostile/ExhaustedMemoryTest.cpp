// An allocation fails, whichever it is: std::bad_alloc arrives, nothing is lost, no half object remains.

#include "hostile/CountingNew.h"
#include "support/FakeSystem.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>

using namespace TestImages;
using FakeSystem::TheMachine;

namespace {

// Has links, texts behind the short string optimisation, an inventory of each kind, and an SPD block.
Bytes SmallTable()
{
    const std::string text(40, 'x');
    return Table({StructureOf(4, 1, text, 3, 1, 1, Qword{0}, 1, 0x87, Word{1}, Word{2}, Word{3}, 0x41, 1,
                              Word{2}, Word{0xFFFF}, Word{9}, Bytes(11)),
                  StructureOf(7, 2, text, Bytes(14)), StructureOf(16, 3, Bytes(7), Word{5}, Word{1}),
                  StructureOf(17, 4, Word{3}, Word{5}, Bytes(24)), StructureOf(18, 5, Bytes(19)),
                  StructureOf(132, 6, Dword{0x1000}, Dword{4}, Bytes(4))});
}

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
    Bytes image = Image(SmallTable(), 2, 7);
    const auto decode = [&] {
        SMBIOSProtocolImpl(image.data(), static_cast<unsigned short>(image.size()), "/SMBIOS");
    };
    const auto noLockStays = [] { EXPECT_EQ(TheMachine.Locks, 0U); };
    FailEachAllocation(decode, noLockStays);
    TheMachine = FakeSystem::Machine::WithEntryPoint(SmallTable());
    FailEachAllocation([] { FakeSystem::NewLiveObject(); }, noLockStays);
    TheMachine = FakeSystem::Machine::WithBlock(SmallTable());
    FailEachAllocation([] { FakeSystem::NewLiveObject(); }, noLockStays);
}

TEST(ExhaustedMemory, SingletonStartsOver)
{
    TheMachine = FakeSystem::Machine::WithEntryPoint(SmallTable());
    const std::string expected = TextOf(*FakeSystem::NewLiveObject());
    for (std::size_t n = 1; n <= 50; ++n) {
        CountingNew::FailAt = CountingNew::Count + n;
        EXPECT_THROW(SMBIOSProtocolImpl::CreateInstance(), std::bad_alloc);
    }
    EXPECT_EQ(TextOf(SMBIOSProtocolImpl::CreateInstance()), expected);
}

TEST(ExhaustedMemory, SearchCopyAndAssignmentLeaveAllAsItWas)
{
    TheMachine = FakeSystem::Machine::WithEntryPoint(SmallTable());
    const auto source = FakeSystem::NewLiveObject();
    const auto target = Decoded(Image(SmallTable(), 2, 7));
    const std::string expected = TextOf(*source), before = TextOf(*target);
    ASSERT_NE(before, expected);
    const auto checkSource = [&] { EXPECT_EQ(TextOf(*source), expected); };

    const auto search = [&] {
        SearchResult nodes;
        source->SMBiosSearch("/SMBIOS", nodes);
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
    EXPECT_EQ(TextOf(*target), before);
}

} // namespace
