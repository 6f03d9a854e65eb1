// The named lock of the system, between threads and between real processes.

#include "Holder.h"
#include "SMBIOSProtocol/Logger.h"
#include "services/CMySemLock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>
#include <vector>

using Common::CMySemLock;
using namespace std::chrono_literals;

namespace {

class Lock : public testing::Test {
protected:
    // Takes the lock on a thread of its own, and gives it back there.
    std::future<int> TakeAside()
    {
        return std::async(std::launch::async, [name = Name.Text] {
            _MY_LOCK lock;
            const int error = CMySemLock::AcquireSymLock(lock, name.c_str());
            CMySemLock::ReleaseSymLock(lock);
            return error;
        });
    }

    LockName Name;
};

bool Waits(std::future<int>& taking)
{
    return taking.wait_for(200ms) == std::future_status::timeout;
}

bool Arrives(std::future<int>& taking)
{
    return taking.wait_for(5s) == std::future_status::ready && taking.get() == 0;
}

TEST_F(Lock, ExcludesTheThreadsOfOneProcess)
{
    std::atomic<int> inside{0};
    std::atomic<int> met{0};
    const auto work = [&] {
        for (int i = 0; i < 25; ++i) {
            _MY_LOCK lock;
            EXPECT_EQ(CMySemLock::AcquireSymLock(lock, Name.Text.c_str()), 0);
            met += ++inside != 1;
            std::this_thread::sleep_for(200us);
            --inside;
            CMySemLock::ReleaseSymLock(lock);
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(work);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(met, 0);
}

TEST_F(Lock, ExcludesAnotherProcessUntilItGivesTheLockBack)
{
    Holder other(Name);
    std::future<int> taking = TakeAside();
    EXPECT_TRUE(Waits(taking));
    other.GiveBack();
    EXPECT_TRUE(Arrives(taking));
}

TEST_F(Lock, IsFreedByTheDeathOfItsHolder)
{
    Holder other(Name);
    std::future<int> taking = TakeAside();
    EXPECT_TRUE(Waits(taking));
    other.Kill();
    EXPECT_TRUE(Arrives(taking));

    Holder next(Name);
    taking = TakeAside();
    EXPECT_TRUE(Waits(taking)) << "the lock is whole again";
    next.GiveBack();
    EXPECT_TRUE(Arrives(taking));
}

TEST_F(Lock, IsGivenUpAfterAWhileWithALineInTheLog)
{
    std::vector<std::string> lines;
    LOGGER::Logger::CreateInstance().SetSink(
        [&](const LOGGER::LogLine& line) { lines.push_back(line.Message); });
    Holder other(Name);
    _MY_LOCK lock;
    EXPECT_NE(CMySemLock::AcquireSymLock(lock, Name.Text.c_str()), 0);
    CMySemLock::ReleaseSymLock(lock);
    std::future<int> again = TakeAside();
    EXPECT_EQ(again.wait_for(5s), std::future_status::ready) << "a process waits in vain once";
    EXPECT_NE(again.get(), 0);
    LOGGER::Logger::CreateInstance().SetSink(nullptr);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].rfind("Going on without the lock " + Name.Text, 0), 0U) << lines[0];

    other.GiveBack();
    EXPECT_EQ(TakeAside().get(), 0);
    Holder next(Name);
    again = TakeAside();
    EXPECT_TRUE(Waits(again)) << "once free, the lock is worth waiting for";
    next.GiveBack();
    EXPECT_TRUE(Arrives(again));
}

} // namespace

int main(int count, char* arguments[])
{
    if (count == 3 && std::string(arguments[1]) == "hold")
        return Holder::Main(arguments[2]);
    Holder::Program = arguments[0];
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
