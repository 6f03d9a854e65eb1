// A name for the lock that no one else uses, and an attempt to take it.

#pragma once

#include "SMBIOSProtocol/Logger.h"
#include "services/CMySemLock.h"

#include <cstdio>
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
