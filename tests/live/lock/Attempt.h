// A name for the lock that no one else uses, and attempts to take it.

#pragma once

#include "SMBIOSProtocol/Logger.h"
#include "services/CMySemLock.h"

#include <chrono>
#include <cstdio>
#include <future>
#include <random>
#include <string>
#include <vector>

struct LockName {
    LockName() : Text("SMBIOS_LOCK_TEST_" + std::to_string(std::random_device()())) {}
    LockName(const LockName&) = delete;
    LockName& operator=(const LockName&) = delete;
    ~LockName() ///< removes the files behind the lock, on systems that have some
    {
        for (const char* folder : {"/run/lock", "/tmp"})
            std::remove(FileIn(folder).c_str());
    }

    std::string FileIn(const std::string& folder) const { return folder + "/" + Text + ".lock"; }

    const std::string Text;
};

/// Takes the lock and gives it back: the error, and what the log says.
struct Attempt {
    explicit Attempt(const std::string& name)
    {
        LOGGER::Logger::CreateInstance().SetSink(
            [this](const LOGGER::LogLine& line) { Log.push_back(line.Message); });
        _MY_LOCK lock;
        Error = Common::CMySemLock::AcquireSymLock(lock, name.c_str());
        Common::CMySemLock::ReleaseSymLock(lock);
        LOGGER::Logger::CreateInstance().SetSink(nullptr);
    }

    int Error;
    std::vector<std::string> Log;
};

/// Takes the lock on a thread of its own, and gives it back there.
inline std::future<int> TakeAside(const LockName& name)
{
    return std::async(std::launch::async, [text = name.Text] { return Attempt(text).Error; });
}

/// Whether one has to wait for the lock, and gets it once `end` has ended the hold.
template <typename End>
bool IsHeldUntil(const LockName& name, End end)
{
    using namespace std::chrono_literals;
    std::future<int> taking = TakeAside(name);
    const bool waits = taking.wait_for(200ms) == std::future_status::timeout;
    end();
    return waits && taking.wait_for(5s) == std::future_status::ready && taking.get() == 0;
}
