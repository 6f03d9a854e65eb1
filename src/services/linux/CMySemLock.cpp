// The lock is an advisory one on a well-known file: the system frees it when its holder closes the file or
// dies.
//
// Every user of the machine can open the file, so a stranger can sit on the lock. Waiting for it therefore
// ends after a while; the work then goes on without it, since it only keeps mappings apart. A process that
// has waited in vain does not wait again until it finds the lock free.

#include "services/CMySemLock.h"

#include "SMBIOSProtocol/Logger.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace Common {

namespace {

constexpr std::chrono::seconds LongestWait{10};
constexpr std::chrono::milliseconds Pause{1};
constexpr mode_t Mode = 0644;
constexpr const char* Folders[] = {"/run/lock", "/tmp"};

std::atomic<bool> HasWaitedInVain{false};

// Opens the file, or makes it. Links are not followed: others can write to these folders. Gives -1 with the
// reason in errno.
int OpenLockFile(const std::string& path)
{
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    for (;;) {
        const int existing = open(path.c_str(), flags);
        if (existing >= 0 || errno != ENOENT)
            return existing;
        const int made = open(path.c_str(), flags | O_CREAT | O_EXCL, Mode);
        if (made >= 0)
            fchmod(made, Mode); // whatever the umask: all users share the lock
        if (made >= 0 || errno != EEXIST)
            return made;
    }
}

int OpenLockFileOf(const char* name)
{
    int file = -1;
    for (const char* folder : Folders) {
        file = OpenLockFile(std::string(folder) + "/" + name + ".lock");
        if (file >= 0)
            break;
    }
    return file;
}

// Gives 0 once the lock is taken, or the system's error.
int WaitForLock(int file)
{
    const auto start = std::chrono::steady_clock::now();
    while (flock(file, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return errno;
        if (HasWaitedInVain || std::chrono::steady_clock::now() - start >= LongestWait) {
            HasWaitedInVain = true;
            return ETIMEDOUT;
        }
        std::this_thread::sleep_for(Pause);
    }
    HasWaitedInVain = false;
    return 0;
}

} // namespace

int CMySemLock::AcquireSymLock(_MY_LOCK& lock, const char* name)
{
    const int file = OpenLockFileOf(name);
    const int error = file < 0 ? errno : WaitForLock(file);
    if (error == 0) {
        lock.System = file;
        return 0;
    }
    if (file >= 0)
        close(file);
    LOGGER::Logger::CreateInstance().Log(2, ".\\CMySemLock", "Common::CMySemLock::AcquireSymLock", __LINE__,
                                         "Going on without the lock %s: %s", name, std::strerror(error));
    return error;
}

void CMySemLock::ReleaseSymLock(_MY_LOCK lock)
{
    if (lock.System < 0)
        return;
    const auto file = static_cast<int>(lock.System);
    flock(file, LOCK_UN); // a process forked meanwhile has the file open too, and would keep the lock
    close(file);
}

} // namespace Common
