// A lock name that no one else uses.

#pragma once

#include <cstdio>
#include <random>
#include <string>

struct LockName {
    LockName() = default;
    LockName(const LockName&) = delete;
    LockName& operator=(const LockName&) = delete;
    ~LockName()
    {
        for (const char* folder : {"/run/lock", "/tmp"})
            std::remove(FileIn(folder).c_str());
    }

    /// The file behind the lock, on systems that have one.
    std::string FileIn(const char* folder) const { return std::string(folder) + "/" + Text + ".lock"; }

    const std::string Text = "SMBIOS_LOCK_TEST_" + std::to_string(std::random_device()());
};
