// The lock is an advisory one on well-known files: the system frees it when its holder closes them or dies.
//
// Which of the files a process can make or open depends on its rights and on who came first, so it takes the
// lock on every one that it can open, always in the same order: two processes that can open a file in common
// exclude each other there. A file that was removed while it was waited for is no place to meet, and the one
// that is now at its path is taken instead.
//
// An advisory lock belongs to the open file, and a forked child has its parent's files open. It closes them
// at once, so that the lock is the parent's alone.

#include "services/CMySemLock.h"

#include "SMBIOSProtocol/Logger.h"
#include "services/Patience.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <iterator>
#include <map>
#include <mutex>
#include <pthread.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace Common {

namespace {

using Clock = std::chrono::steady_clock;
using Reference = std::intptr_t; // to a lock, as in _MY_LOCK

constexpr std::chrono::milliseconds Pause{1};
constexpr mode_t Mode = 0644;
constexpr const char* Folders[] = {"/run/lock", "/tmp"};

// Opens the file, or makes it. Links are not followed: others can write to these folders. Gives -1 with the
// reason in errno.
int OpenOrMake(const char* path)
{
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    for (;;) {
        const int existing = open(path, flags);
        if (existing >= 0 || errno != ENOENT)
            return existing;
        const int made = open(path, flags | O_CREAT | O_EXCL, Mode);
        if (made >= 0)
            fchmod(made, Mode); // whatever the umask: all users share the lock
        if (made >= 0 || errno != EEXIST)
            return made;
    }
}

// The open files of all locks that this process holds or waits for.
class LockFiles {
public:
    static LockFiles& OfThisProcess()
    {
        static LockFiles& files = *new LockFiles; // for as long as the process may fork
        return files;
    }

    Reference NewReference()
    {
        const std::lock_guard<std::mutex> guard(Guard);
        return ++LastReference;
    }

    // Gives -1 with the reason in errno.
    int Open(Reference lock, const std::string& path)
    {
        const std::lock_guard<std::mutex> guard(Guard);
        const auto entry = Files.emplace(lock, -1);
        const int file = OpenOrMake(path.c_str());
        if (file < 0) {
            const int error = errno;
            Files.erase(entry);
            errno = error;
        } else
            entry->second = file;
        return file;
    }

    // Gives the lock on its last file back.
    void CloseLast(Reference lock)
    {
        const std::lock_guard<std::mutex> guard(Guard);
        Close(std::prev(Files.upper_bound(lock)));
    }

    // Gives the lock on all its files back. A parent's lock has none in a child.
    void CloseAll(Reference lock)
    {
        const std::lock_guard<std::mutex> guard(Guard);
        for (auto file = Files.find(lock); file != Files.end(); file = Files.find(lock))
            Close(file);
    }

private:
    using Entry = std::multimap<Reference, int>::iterator;

    LockFiles() { pthread_atfork(BeforeFork, AfterForkInParent, AfterForkInChild); }

    // No fork comes between the opening of a file and its entry here.
    static void BeforeFork() { OfThisProcess().Guard.lock(); }
    static void AfterForkInParent() { OfThisProcess().Guard.unlock(); }
    static void AfterForkInChild()
    {
        for (auto& [lock, file] : OfThisProcess().Files) {
            if (file >= 0)
                close(file);
            file = -1;
        }
        OfThisProcess().Guard.unlock();
    }

    void Close(Entry entry)
    {
        if (entry->second >= 0) {
            flock(entry->second, LOCK_UN); // also for a child that was made behind the C library's back
            close(entry->second);
        }
        Files.erase(entry);
    }

    std::mutex Guard;
    Reference LastReference = 0;
    std::multimap<Reference, int> Files; // by lock, in the order of their opening
};

// Gives 0 once this process has the lock on the file, or the system's error.
int WaitFor(int file, Clock::time_point giveUp)
{
    while (flock(file, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return errno;
        if (Clock::now() >= giveUp)
            return ETIMEDOUT;
        std::this_thread::sleep_for(Pause);
    }
    return 0;
}

bool IsAt(const std::string& path, int file)
{
    struct stat atPath = {}, ours = {};
    return lstat(path.c_str(), &atPath) == 0 && fstat(file, &ours) == 0 && atPath.st_dev == ours.st_dev &&
           atPath.st_ino == ours.st_ino;
}

// A lock in the making: what it has taken goes back unless it is kept.
class Attempt {
public:
    explicit Attempt(Clock::time_point giveUp) : GiveUp(giveUp) {}
    Attempt(const Attempt&) = delete;
    Attempt& operator=(const Attempt&) = delete;
    ~Attempt()
    {
        if (!IsKept)
            Files.CloseAll(Lock);
    }

    // Takes the lock on each file that lets this process. Gives 0, or the system's error where none does or
    // one is held for too long.
    int Take(const std::string& name)
    {
        int refusal = 0;
        for (const char* folder : Folders) {
            const int error = TakeFile(std::string(folder) + "/" + name + ".lock");
            if (error == ETIMEDOUT)
                return error;
            if (error != 0)
                refusal = error;
        }
        return Taken >= 0 ? 0 : refusal;
    }

    Reference Keep()
    {
        IsKept = true;
        return Lock;
    }

private:
    int TakeFile(const std::string& path)
    {
        if (Taken >= 0 && IsAt(path, Taken)) // a second link to the file that it has
            return 0;
        for (;;) {
            const int file = Files.Open(Lock, path);
            if (file < 0)
                return errno;
            const int error = WaitFor(file, GiveUp);
            if (error == 0 && IsAt(path, file)) {
                Taken = file;
                return 0;
            }
            Files.CloseLast(Lock);
            if (error != 0)
                return error;
            if (Clock::now() >= GiveUp) // someone replaces the file again and again
                return ETIMEDOUT;
        }
    }

    LockFiles& Files = LockFiles::OfThisProcess();
    const Reference Lock = Files.NewReference();
    const Clock::time_point GiveUp;
    int Taken = -1;
    bool IsKept = false;
};

Patience PatienceOfThisProcess;

} // namespace

int CMySemLock::AcquireSymLock(_MY_LOCK& lock, const char* name)
{
    Attempt attempt(Clock::now() + PatienceOfThisProcess.Wait());
    const int error = attempt.Take(name);
    if (error == 0) {
        PatienceOfThisProcess.HasTheLock();
        lock.System = attempt.Keep();
        return 0;
    }
    if (error == ETIMEDOUT)
        PatienceOfThisProcess.HasWaitedInVain();
    LOGGER::Logger::CreateInstance().Log(2, ".\\CMySemLock", "Common::CMySemLock::AcquireSymLock", __LINE__,
                                         "Going on without the lock %s: %s", name, std::strerror(error));
    return error;
}

void CMySemLock::ReleaseSymLock(_MY_LOCK lock)
{
    if (lock.System != _MY_LOCK().System)
        LockFiles::OfThisProcess().CloseAll(lock.System);
}

} // namespace Common
