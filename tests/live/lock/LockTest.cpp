// The named lock of the system, between threads and between real processes.

#include "Attempt.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

#if defined(_WIN32)
#include <windows.h>
#define popen _popen
#define pclose _pclose
#else
#include <csignal>
#endif

using Common::CMySemLock;
using namespace std::chrono_literals;

namespace {

std::string Program; // this program's file

// Exists from when the other process has the lock until this one has seen it.
std::filesystem::path SignOf(const std::string& name)
{
    return std::filesystem::temp_directory_path() / (name + ".taken");
}

// What the other process does: a byte of input kills it, the end has it give the lock back.
int Hold(const char* name)
{
    _MY_LOCK lock;
    if (CMySemLock::AcquireSymLock(lock, name) != 0)
        return 1;
    std::ofstream(SignOf(name)).close();
    if (std::getchar() != EOF) {
#if defined(_WIN32)
        TerminateProcess(GetCurrentProcess(), 1);
#else
        std::raise(SIGKILL);
#endif
    }
    CMySemLock::ReleaseSymLock(lock);
    return 0;
}

// Another process that holds the lock.
class Holder {
public:
    explicit Holder(const LockName& name) : Input(popen((Program + " hold " + name.Text).c_str(), "w"))
    {
        const auto giveUp = std::chrono::steady_clock::now() + 20s;
        std::error_code inUse; // while the other process still writes it
        while (!std::filesystem::remove(SignOf(name.Text), inUse)) {
            if (Input == nullptr || std::chrono::steady_clock::now() > giveUp)
                throw std::runtime_error("the other process did not take the lock");
            std::this_thread::sleep_for(5ms);
        }
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    ~Holder() { GiveBack(); }

    void GiveBack()
    {
        if (Input != nullptr)
            pclose(Input);
        Input = nullptr;
    }
    void Kill()
    {
        std::fputc('k', Input);
        GiveBack();
    }

private:
    std::FILE* Input;
};

class Lock : public testing::Test {
protected:
    LockName Name;
};

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

// The second holder shows that the lock is whole again.
TEST_F(Lock, ExcludesAnotherProcessUntilItDiesOrGivesTheLockBack)
{
    Holder dying(Name);
    EXPECT_TRUE(IsHeldUntil(Name, [&] { dying.Kill(); }));
    Holder next(Name);
    EXPECT_TRUE(IsHeldUntil(Name, [&] { next.GiveBack(); }));
}

TEST_F(Lock, IsGivenUpAfterAWhileWithALineInTheLog)
{
    Holder other(Name);
    const auto start = std::chrono::steady_clock::now();
    const Attempt inVain(Name.Text);
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited, 10s);
    EXPECT_LE(waited, 20s);
    EXPECT_NE(inVain.Error, 0);
    ASSERT_EQ(inVain.Log.size(), 1U);
    EXPECT_EQ(inVain.Log[0].rfind("Going on without the lock " + Name.Text, 0), 0U) << inVain.Log[0];
    const auto again = std::chrono::steady_clock::now();
    EXPECT_NE(Attempt(Name.Text).Error, 0);
    const auto waitedAgain = std::chrono::steady_clock::now() - again;
    EXPECT_GT(waitedAgain, 90ms) << "a hold that ends soon is worth a short wait";
    EXPECT_LT(waitedAgain, 5s) << "a process waits long in vain once";

    other.GiveBack();
    EXPECT_EQ(Attempt(Name.Text).Error, 0);
    Holder next(Name);
    EXPECT_TRUE(IsHeldUntil(Name, [&] { next.GiveBack(); })) << "once free, the lock is worth waiting for";
}

} // namespace

int main(int count, char* arguments[])
{
    if (count == 3 && std::string(arguments[1]) == "hold")
        return Hold(arguments[2]);
    Program = arguments[0];
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
