// The lock is a named mutex of the whole machine. One that its holder left behind, by dying, counts as taken.
//
// The user who made it and administrators can open it, and can sit on it. Waiting for it therefore ends after
// a while; the work then goes on without it, since it only keeps mappings apart. A process that has waited in
// vain does not wait again until it finds the lock free.

#include "services/CMySemLock.h"

#include "SMBIOSProtocol/Logger.h"

#include <atomic>
#include <string>
#include <windows.h>

namespace Common {

namespace {

constexpr DWORD LongestWaitInMilliseconds = 10'000;

std::atomic<bool> HasWaitedInVain{false};

} // namespace

int CMySemLock::AcquireSymLock(_MY_LOCK& lock, const char* name)
{
    const HANDLE mutex = CreateMutexA(nullptr, FALSE, (std::string("Global\\") + name).c_str());
    DWORD error = mutex == nullptr ? GetLastError() : 0;
    if (mutex != nullptr) {
        const DWORD outcome = WaitForSingleObject(mutex, HasWaitedInVain ? 0 : LongestWaitInMilliseconds);
        HasWaitedInVain = outcome == WAIT_TIMEOUT;
        if (outcome == WAIT_OBJECT_0 || outcome == WAIT_ABANDONED) {
            lock.System = reinterpret_cast<std::intptr_t>(mutex);
            return 0;
        }
        error = outcome == WAIT_TIMEOUT ? static_cast<DWORD>(ERROR_TIMEOUT) : GetLastError();
        CloseHandle(mutex);
    }
    LOGGER::Logger::CreateInstance().Log(2, ".\\CMySemLock", "Common::CMySemLock::AcquireSymLock", __LINE__,
                                         "Going on without the lock %s: system error %lu", name, error);
    return static_cast<int>(error);
}

void CMySemLock::ReleaseSymLock(_MY_LOCK lock)
{
    if (lock.System == _MY_LOCK().System)
        return;
    const auto mutex = reinterpret_cast<HANDLE>(lock.System);
    ReleaseMutex(mutex);
    CloseHandle(mutex);
}

} // namespace Common
