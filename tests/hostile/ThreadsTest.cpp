// What threads may do at the same time. The thread sanitizer judges; without it, the answers are compared.

#include "samples/TableText.h"
#include "support/FakeSystem.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>

using namespace Images;

namespace {

constexpr unsigned int Threads = 8;
constexpr unsigned int Rounds = 20;

// Calls `work` with the numbers from 0 in a thread each, at the same moment as nearly as can be.
void OnThreads(const std::function<void(unsigned int)>& work)
{
    std::atomic<unsigned int> missing{Threads};
    std::vector<std::thread> threads;
    for (unsigned int i = 0; i < Threads; ++i)
        threads.emplace_back([&, i] {
            --missing;
            while (missing != 0)
                std::this_thread::yield();
            work(i);
        });
    for (std::thread& thread : threads)
        thread.join();
}

const Bytes SmallTable = FromText(R"(0 1: "vendor" @0x18
4 2: @0x1A w:3 w:3 w:3 @0x2A
7 3: "L1" @0x13
16 4: @0x0F
17 5: w:4 @0x20
end)");

// Each thread searches the shared object; constructs, copies and destroys its own; and destroys a copy that
// shares its source's nodes, whichever of them goes last.
TEST(Threads, SearchConstructCopyAndDestroy)
{
    const Bytes image = Image(SmallTable, 2, 7);
    const auto shared = Decoded(image);
    const SearchResult expected = Everything(*shared);
    std::vector<std::unique_ptr<SMBIOSProtocolImpl>> copies;
    auto source = Decoded(image);
    for (unsigned int i = 0; i < Threads; ++i)
        copies.push_back(std::make_unique<SMBIOSProtocolImpl>(*source));
    source.reset();

    std::atomic<unsigned int> wrong{0};
    OnThreads([&](unsigned int i) {
        wrong += !AreEqual(Everything(*copies[i]), expected);
        copies[i].reset();
        for (unsigned int round = 0; round < Rounds; ++round) {
            unsigned int address = 1;
            unsigned int size = 1;
            shared->GetBiosReservedMem(&address, &size);
            wrong += !AreEqual(Everything(*shared), expected) || address != 0 || size != 0;
            const auto own = Decoded(image);
            SMBIOSProtocolImpl copy(*own);
            *own = copy;
            wrong += !AreEqual(Everything(*own), expected) || !AreEqual(Everything(copy), expected);
        }
    });
    EXPECT_EQ(wrong, 0U);
}

// Each thread copies the one object of the machine, whose mappings move to one of the copies, and searches
// it.
TEST(Threads, GetOneSingletonAndCopyIt)
{
    FakeSystem::TheMachine = FakeSystem::Machine::WithEntryPoint(SmallTable);
    const SearchResult expected = Everything(*Decoded(Image(SmallTable, 2, 7)));
    std::vector<SMBIOSProtocolImpl*> instances(Threads);
    std::atomic<unsigned int> wrong{0};
    OnThreads([&](unsigned int i) {
        instances[i] = &SMBIOSProtocolImpl::CreateInstance();
        for (unsigned int round = 0; round < Rounds; ++round) {
            SMBIOSProtocolImpl copy(*instances[i]);
            copy = *instances[i];
            wrong += !AreEqual(Everything(copy), expected) || !AreEqual(Everything(*instances[i]), expected);
        }
    });
    EXPECT_EQ(instances, std::vector<SMBIOSProtocolImpl*>(Threads, instances[0]));
    EXPECT_EQ(wrong, 0U);
}

TEST(Threads, LogWhileTheSinkChanges)
{
    LOGGER::Logger& logger = LOGGER::Logger::CreateInstance();
    std::atomic<unsigned int> wrong{0};
    const auto sink = [&](const LOGGER::LogLine& line) { wrong += line.Message != "line 7"; };
    OnThreads([&](unsigned int i) {
        for (unsigned int round = 0; round < Rounds; ++round) {
            if (i == 0)
                logger.SetSink(round % 2 == 0 ? LOGGER::Logger::Sink(sink) : nullptr);
            else
                logger.Log(2, "file", "function", 1, "line %d", 7);
        }
    });
    logger.SetSink(nullptr);
    EXPECT_EQ(wrong, 0U);
}

} // namespace
