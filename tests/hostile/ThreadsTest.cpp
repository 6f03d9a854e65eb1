// What threads may do at the same time. The thread sanitizer judges; without it, the answers are compared.

#include "hostile/FakeSystem.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <map>
#include <thread>
#include <vector>

namespace {

using Protocol::SMBIOS::SMBIOSProtocolImpl;
using TestImages::Bytes;
using TestImages::Structure;

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

Bytes SmallTable()
{
    return TestImages::Table(
        {Structure(0, 1).Text("vendor").Fill(19), Structure(4, 2).Fill(22).Word(3).Word(3).Word(3).Fill(11),
         Structure(7, 3).Text("L1").Fill(14), Structure(16, 4).Fill(11), Structure(17, 5).Word(4).Fill(26)});
}

// A text of the whole tree.
std::string Everything(SMBIOSProtocolImpl& object)
{
    std::map<std::string, _XNode> nodes;
    object.SMBiosSearch("/SMBIOS", nodes);
    std::string text;
    for (const auto& [path, node] : nodes) {
        text += path;
        for (const std::string& item : node.Items)
            text += "|" + item;
    }
    return text;
}

class ThreadsOnTables : public testing::Test {
protected:
    SMBIOSProtocolImpl Decoded()
    {
        return {Image.data(), static_cast<unsigned short>(Image.size()), "/SMBIOS"};
    }

    Bytes Image = TestImages::Image(SmallTable(), 2, 7);
    SMBIOSProtocolImpl Shared = Decoded();
    const std::string Expected = Everything(Shared);
    std::atomic<unsigned int> Wrong{0};
};

} // namespace

TEST_F(ThreadsOnTables, SearchOneObject)
{
    OnThreads([&](unsigned int) {
        for (unsigned int round = 0; round < Rounds; ++round) {
            unsigned int address = 1;
            unsigned int size = 1;
            Shared.GetBiosReservedMem(&address, &size);
            Wrong += Everything(Shared) != Expected || address != 0 || size != 0;
        }
    });
    EXPECT_EQ(Wrong, 0U);
}

TEST_F(ThreadsOnTables, ConstructCopyAndDestroyTheirOwn)
{
    OnThreads([&](unsigned int) {
        for (unsigned int round = 0; round < Rounds; ++round) {
            SMBIOSProtocolImpl own = Decoded();
            SMBIOSProtocolImpl copy(own);
            own = copy;
            Wrong += Everything(own) != Expected || Everything(copy) != Expected;
        }
    });
    EXPECT_EQ(Wrong, 0U);
}

// Copies share the nodes of their source, whichever of them goes last.
TEST_F(ThreadsOnTables, SearchAndDestroyCopiesOfOneObject)
{
    std::vector<std::unique_ptr<SMBIOSProtocolImpl>> copies;
    {
        SMBIOSProtocolImpl source = Decoded();
        for (unsigned int i = 0; i < Threads; ++i)
            copies.push_back(std::make_unique<SMBIOSProtocolImpl>(source));
    }
    OnThreads([&](unsigned int i) {
        Wrong += Everything(*copies[i]) != Expected;
        copies[i].reset();
    });
    EXPECT_EQ(Wrong, 0U);
}

TEST(Threads, GetOneSingleton)
{
    FakeSystem::TheMachine = FakeSystem::Machine::WithEntryPoint(SmallTable(), 2, 7);
    std::vector<SMBIOSProtocolImpl*> instances(Threads);
    OnThreads([&](unsigned int i) { instances[i] = &SMBIOSProtocolImpl::CreateInstance(); });
    EXPECT_EQ(instances, std::vector<SMBIOSProtocolImpl*>(Threads, instances[0]));
    EXPECT_FALSE(Everything(*instances[0]).empty());
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
