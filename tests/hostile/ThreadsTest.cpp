// What threads may do at the same time. The thread sanitizer judges; without it, the answers are compared.

#include "support/FakeSystem.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>

using namespace TestImages;

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

const Bytes SmallTable = Table({StructureOf(0, 1, "vendor", Bytes(19)),
                                StructureOf(4, 2, Bytes(22), Word{3}, Word{3}, Word{3}, Bytes(11)),
                                StructureOf(7, 3, "L1", Bytes(14)), StructureOf(16, 4, Bytes(11)),
                                StructureOf(17, 5, Word{4}, Bytes(26))});

// Each thread searches the shared object; constructs, copies and destroys its own; and destroys a copy that
// shares its source's nodes, whichever of them goes last.
TEST(Threads, SearchConstructCopyAndDestroy)
{
    const Bytes image = Image(SmallTable, 2, 7);
    const auto shared = Decoded(image);
    const std::string expected = TextOf(*shared);
    std::vector<std::unique_ptr<SMBIOSProtocolImpl>> copies;
    auto source = Decoded(image);
    for (unsigned int i = 0; i < Threads; ++i)
        copies.push_back(std::make_unique<SMBIOSProtocolImpl>(*source));
    source.reset();

    std::atomic<unsigned int> wrong{0};
    OnThreads([&](unsigned int i) {
        wrong += TextOf(*copies[i]) != expected;
        copies[i].reset();
        for (unsigned int round = 0; round < Rounds; ++round) {
            unsigned int address = 1;
            unsigned int size = 1;
            shared->GetBiosReservedMem(&address, &size);
            wrong += TextOf(*shared) != expected || address != 0 || size != 0;
            const auto own = Decoded(image);
            SMBIOSProtocolImpl copy(*own);
            *own = copy;
            wrong += TextOf(*own) != expected || TextOf(copy) != expected;
        }
    });
    EXPECT_EQ(wrong, 0U);
}

TEST(Threads, GetOneSingleton)
{
    FakeSystem::TheMachine = FakeSystem::Machine::WithEntryPoint(SmallTable);
    std::vector<SMBIOSProtocolImpl*> instances(Threads);
    OnThreads([&](unsigned int i) { instances[i] = &SMBIOSProtocolImpl::CreateInstance(); });
    EXPECT_EQ(instances, std::vector<SMBIOSProtocolImpl*>(Threads, instances[0]));
    EXPECT_EQ(TextOf(*instances[0]), TextOf(*Decoded(Image(SmallTable, 2, 7))));
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
