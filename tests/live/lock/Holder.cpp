#include "Holder.h"

#include "services/CMySemLock.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <system_error>
#include <thread>

#if defined(_WIN32)
#include <windows.h>
#define popen _popen
#define pclose _pclose
#else
#include <csignal>
#endif

using Common::CMySemLock;

namespace {

[[noreturn]] void KillThisProcess()
{
#if defined(_WIN32)
    TerminateProcess(GetCurrentProcess(), 1);
#else
    std::raise(SIGKILL);
#endif
    throw std::logic_error("not killed");
}

// Exists from when the other process has the lock until this one has seen it.
std::filesystem::path SignOf(const std::string& name)
{
    return std::filesystem::temp_directory_path() / (name + ".taken");
}

} // namespace

std::string Holder::Program;

LockName::LockName() : Text("SMBIOS_LOCK_TEST_" + std::to_string(std::random_device()())) {}

LockName::~LockName()
{
    for (const char* folder : {"/run/lock", "/tmp"})
        std::remove(FileIn(folder).c_str());
}

Holder::Holder(const LockName& name) : Input(popen((Program + " hold " + name.Text).c_str(), "w"))
{
    const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    std::error_code inUse; // while the other process still writes it
    while (!std::filesystem::remove(SignOf(name.Text), inUse)) {
        if (Input == nullptr || std::chrono::steady_clock::now() > giveUp)
            throw std::runtime_error("the other process did not take the lock");
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

Holder::~Holder()
{
    GiveBack();
}

void Holder::GiveBack()
{
    if (Input != nullptr)
        pclose(Input);
    Input = nullptr;
}

void Holder::Kill()
{
    std::fputc('k', Input);
    GiveBack();
}

int Holder::Main(const char* name)
{
    _MY_LOCK lock;
    if (CMySemLock::AcquireSymLock(lock, name) != 0)
        return 1;
    std::ofstream sign(SignOf(name));
    sign.close();
    if (std::getchar() != EOF)
        KillThisProcess();
    CMySemLock::ReleaseSymLock(lock);
    return 0;
}
