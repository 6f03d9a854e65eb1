// The lock is a named mutex of the whole machine. One that its holder left behind, by dying, counts as taken.
//
// Whoever comes first makes the mutex. Other accounts may then wait for it and give it back, and no more;
// nothing more is asked for where another made it.

#include "services/CMySemLock.h"

#include "SMBIOSProtocol/Logger.h"
#include "services/Patience.h"

#include <memory>
#include <string>
// windows.h comes first: sddl.h needs it.
#include <windows.h>

#include <sddl.h>

namespace Common {

namespace {

// Everyone: SYNCHRONIZE and MUTEX_MODIFY_STATE. The owner, administrators and the system: all rights.
constexpr const char* Rights = "D:(A;;0x100001;;;WD)(A;;0x1F0001;;;OW)(A;;0x1F0001;;;BA)(A;;0x1F0001;;;SY)";

struct Free {
    void operator()(void* descriptor) const { LocalFree(descriptor); }
};

// Opens the mutex, or makes it. Gives 0 or the system's error.
DWORD OpenOrMake(const std::string& name, HANDLE& mutex)
{
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (!ConvertStringSecurityDescriptorToSecurityDescriptorA(Rights, SDDL_REVISION_1, &descriptor, nullptr))
        return GetLastError();
    const std::unique_ptr<void, Free> owner(descriptor);
    SECURITY_ATTRIBUTES attributes = {sizeof attributes, descriptor, FALSE};
    mutex = CreateMutexExA(&attributes, ("Global\\" + name).c_str(), 0, SYNCHRONIZE);
    return mutex == nullptr ? GetLastError() : 0;
}

Patience PatienceOfThisProcess;

// Gives 0 once this thread has the mutex, or the system's error.
DWORD WaitFor(HANDLE mutex)
{
    switch (WaitForSingleObject(mutex, static_cast<DWORD>(PatienceOfThisProcess.Wait().count()))) {
    case WAIT_OBJECT_0:
    case WAIT_ABANDONED:
        PatienceOfThisProcess.HasTheLock();
        return 0;
    case WAIT_TIMEOUT:
        PatienceOfThisProcess.HasWaitedInVain();
        return ERROR_TIMEOUT;
    default:
        return GetLastError();
    }
}

} // namespace

int CMySemLock::AcquireSymLock(_MY_LOCK& lock, const char* name)
{
    HANDLE mutex = nullptr;
    DWORD error = OpenOrMake(name, mutex);
    if (mutex != nullptr)
        error = WaitFor(mutex);
    if (error == 0) {
        lock.System = reinterpret_cast<std::intptr_t>(mutex);
        return 0;
    }
    if (mutex != nullptr)
        CloseHandle(mutex);
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
