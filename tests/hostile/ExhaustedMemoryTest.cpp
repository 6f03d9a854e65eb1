// An allocation fails, whichever it is: std::bad_alloc arrives, nothing is lost, no half object remains.

#include "hostile/CountingNew.h"
#include "hostile/FakeSystem.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <map>

namespace {

using Protocol::SMBIOS::SMBIOSProtocolImpl;
using TestImages::Bytes;
using TestImages::Structure;
using Tree = std::map<std::string, std::vector<std::string>>; // Items by path

Tree Everything(SMBIOSProtocolImpl& object)
{
    std::map<std::string, _XNode> nodes;
    object.SMBiosSearch("/SMBIOS", nodes);
    Tree tree;
    for (const auto& [path, node] : nodes)
        tree[path] = node.Items;
    return tree;
}

// Has links, texts behind the short string optimisation, an inventory of each kind, and an SPD block.
Bytes SmallTable()
{
    const std::string text(40, 'x');
    Structure processor(4, 1);
    processor.Text(text).Byte(3).Byte(1).Byte(1).Qword(0).Byte(1).Byte(0x87).Word(1).Word(2).Word(3);
    processor.Byte(0x41).Byte(1).Word(2).Word(0xFFFF).Word(9).Fill(11);
    const Structure cache = Structure(7, 2).Text(text).Fill(14);
    const Structure array = Structure(16, 3).Fill(7).Word(5).Word(1);
    const Structure device = Structure(17, 4).Word(3).Word(5).Fill(24);
    const Structure error = Structure(18, 5).Fill(19);
    const Structure block = Structure(132, 6).Dword(0x1000).Dword(4).Fill(4);
    return TestImages::Table({processor, cache, array, device, error, block});
}

struct SmallImage {
    Bytes Image = TestImages::Image(SmallTable(), 2, 7);

    SMBIOSProtocolImpl Decoded()
    {
        return {Image.data(), static_cast<unsigned short>(Image.size()), "/SMBIOS"};
    }
};

// Does `work` with its first allocation failing, then with its second, until it does it without a failure.
// After each failure, `check` looks at what `work` was working on. Prints how many failed.
void FailEachAllocation(
    const char* name, const std::function<void()>& work, const std::function<void()>& check = [] {})
{
    work(); // what is made once a process is made now
    std::size_t arrived = 0;
    std::size_t n = 1;
    for (;; ++n) {
        const std::size_t held = CountingNew::Held();
        CountingNew::FailAt(n);
        try {
            work();
        } catch (const std::bad_alloc&) {
            ++arrived;
        }
        const bool hasFailed = CountingNew::HasFailed();
        CountingNew::FailAt(0);
        if (!hasFailed)
            break;
        ASSERT_EQ(CountingNew::Held(), held) << name << ": allocation " << n;
        check();
        ASSERT_FALSE(testing::Test::HasFailure()) << name << ": allocation " << n;
    }
    std::printf("%s: %zu allocations failed, %zu of them reached the caller\n", name, n - 1, arrived);
    // A sort that gets no buffer does without: all others arrive.
    EXPECT_GE(arrived + 20, n - 1) << name;
    EXPECT_GT(arrived, 0U) << name;
}

} // namespace

TEST(ExhaustedMemory, ConstructionFromAnImage)
{
    SmallImage image;
    FailEachAllocation("construction from an image", [&] { image.Decoded(); });
}

TEST(ExhaustedMemory, LiveConstruction)
{
    const auto check = [] { EXPECT_EQ(FakeSystem::TheMachine.Locks, 0U); };
    FakeSystem::TheMachine = FakeSystem::Machine::WithEntryPoint(SmallTable(), 2, 7);
    FailEachAllocation(
        "construction from physical memory", [] { FakeSystem::NewLiveObject(); }, check);
    FakeSystem::TheMachine = FakeSystem::Machine::WithBlock(SmallTable(), 2, 7);
    FailEachAllocation(
        "construction from the firmware's block", [] { FakeSystem::NewLiveObject(); }, check);
}

TEST(ExhaustedMemory, SingletonStartsOver)
{
    FakeSystem::TheMachine = FakeSystem::Machine::WithEntryPoint(SmallTable(), 2, 7);
    const Tree expected = Everything(*FakeSystem::NewLiveObject());
    for (std::size_t n = 1; n <= 50; ++n) {
        CountingNew::FailAt(n);
        EXPECT_THROW(SMBIOSProtocolImpl::CreateInstance(), std::bad_alloc);
        CountingNew::FailAt(0);
    }
    EXPECT_EQ(Everything(SMBIOSProtocolImpl::CreateInstance()), expected);
}

TEST(ExhaustedMemory, SearchLeavesTheObjectAsItWas)
{
    SmallImage image;
    SMBIOSProtocolImpl object = image.Decoded();
    const Tree expected = Everything(object);
    const auto search = [&] {
        std::map<std::string, _XNode> nodes;
        object.SMBiosSearch("/SMBIOS", nodes);
    };
    FailEachAllocation("search", search, [&] { EXPECT_EQ(Everything(object), expected); });
}

TEST(ExhaustedMemory, CopyAndAssignmentLeaveBothSidesAsTheyWere)
{
    SmallImage image;
    FakeSystem::TheMachine = FakeSystem::Machine::WithEntryPoint(SmallTable(), 2, 7);
    const auto source = FakeSystem::NewLiveObject();
    const Tree expected = Everything(*source);
    const auto checkSource = [&] { EXPECT_EQ(Everything(*source), expected); };
    FailEachAllocation(
        "copy", [&] { SMBIOSProtocolImpl copy(*source); }, checkSource);

    SMBIOSProtocolImpl target = image.Decoded();
    const Tree before = Everything(target);
    ASSERT_NE(before, expected);
    const auto assign = [&] {
        SMBIOSProtocolImpl scratch(target);
        scratch = *source;
    };
    FailEachAllocation("assignment", assign, [&] {
        checkSource();
        EXPECT_EQ(Everything(target), before);
    });

    const std::size_t held = CountingNew::Held();
    CountingNew::FailAt(1);
    EXPECT_THROW(target = *source, std::bad_alloc);
    CountingNew::FailAt(0);
    EXPECT_EQ(CountingNew::Held(), held);
    EXPECT_EQ(Everything(target), before);
}
