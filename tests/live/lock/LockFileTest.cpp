// The files behind the lock on Linux, in folders where strangers can write, and what becomes of the lock in
// forked processes.

#include "Attempt.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using Common::CMySemLock;

namespace {

constexpr const char* Folders[] = {"/run/lock", "/tmp"};
constexpr uid_t Root = 0, Stranger = 1, Nobody = 65534;

[[noreturn]] void StayUntilKilled()
{
    for (;;)
        pause();
}

// Another process. It works, tells the result, and stays until it is killed.
class Other {
public:
    explicit Other(const std::function<int()>& work)
    {
        int ends[2];
        if (pipe(ends) != 0)
            throw std::runtime_error("no pipe");
        Process = fork();
        if (Process == 0) {
            const int result = work();
            if (write(ends[1], &result, sizeof result) == sizeof result)
                StayUntilKilled();
            _exit(1);
        }
        close(ends[1]);
        Result = ends[0];
    }
    Other(const Other&) = delete;
    Other& operator=(const Other&) = delete;
    ~Other()
    {
        Kill();
        close(Result);
    }

    int Told() const
    {
        int result = -1;
        return read(Result, &result, sizeof result) == sizeof result ? result : -1;
    }
    void Kill()
    {
        if (Process > 0 && kill(Process, SIGKILL) == 0)
            waitpid(Process, nullptr, 0);
        Process = -1;
    }

private:
    pid_t Process;
    int Result;
};

int Take(const LockName& name)
{
    _MY_LOCK lock;
    return CMySemLock::AcquireSymLock(lock, name.Text.c_str());
}

// Whether two users, the first of whom has come first, exclude each other.
bool Meet(const LockName& name, uid_t first, uid_t second)
{
    Other holder([&] { return seteuid(first) == 0 ? Take(name) : -1; });
    if (holder.Told() != 0 || seteuid(second) != 0)
        return false;
    const bool meet = IsHeldUntil(name, [&] {
        seteuid(Root);
        holder.Kill();
        seteuid(second);
    });
    return seteuid(Root) == 0 && meet;
}

bool isStrangerQuick = false; // makes a file the moment before it is made here

// The files that this process has open, the lock's among them, but for the folder that is read here.
std::vector<int> OpenFiles()
{
    std::vector<int> files;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
        files.push_back(std::stoi(entry.path().filename()));
    return files;
}

} // namespace

// The linker sends the lock's calls here.
extern "C" {
int __real_open(const char* path, int flags, ...);

int __wrap_open(const char* path, int flags, ...)
{
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    if (isStrangerQuick && (flags & O_CREAT) != 0)
        close(__real_open(path, O_WRONLY | O_CREAT, 0600));
    return __real_open(path, flags, mode);
}
}

namespace {

TEST(LockFile, IsNoLinkThatAStrangerPlaced)
{
    const LockName name;
    const LockName target;
    const std::string victim = target.FileIn("/tmp");

    ASSERT_EQ(symlink(victim.c_str(), name.FileIn(Folders[0]).c_str()), 0);
    const Attempt beside(name.Text);
    EXPECT_EQ(beside.Error, 0) << "the other folder serves";
    EXPECT_TRUE(beside.Log.empty());

    unlink(name.FileIn(Folders[1]).c_str());
    ASSERT_EQ(symlink(victim.c_str(), name.FileIn(Folders[1]).c_str()), 0);
    const Attempt without(name.Text);
    EXPECT_EQ(without.Error, ELOOP);
    EXPECT_EQ(without.Log, std::vector<std::string>{"Going on without the lock " + name.Text +
                                                    ": Too many levels of symbolic links"});
    EXPECT_NE(access(victim.c_str(), F_OK), 0) << "the link was followed";
}

TEST(LockFile, MayBeOutOfReach)
{
    const LockName name;
    for (const char* folder : Folders)
        close(open(name.FileIn(folder).c_str(), O_CREAT | O_EXCL, 0));
    const uid_t user = geteuid();
    ASSERT_EQ(seteuid(user == 0 ? Nobody : user), 0);
    const Attempt attempt(name.Text);
    ASSERT_EQ(seteuid(user), 0);
    EXPECT_EQ(attempt.Error, EACCES);
    EXPECT_EQ(attempt.Log,
              std::vector<std::string>{"Going on without the lock " + name.Text + ": Permission denied"});
}

TEST(LockFile, ThatAStrangerMadeSplitsNoneWhoCanOpenOneInCommon)
{
    if (geteuid() != Root)
        GTEST_SKIP() << "acts as several users";
    struct File {
        uid_t Owner;
        int Mode; ///< -1: there is none
    };
    constexpr File none = {Root, -1}, closed = {Stranger, 0}, own = {Stranger, 0600}, open = {Nobody, 0644};
    const struct {
        const char* Name;
        File Files[2]; ///< in the two folders
        uid_t First, Second;
    } rows[] = {
        {"no file", {none, none}, Nobody, Root},
        {"for root alone", {closed, none}, Nobody, Root},
        {"for root alone, who comes first", {closed, none}, Root, Nobody},
        {"for root alone, among users", {closed, none}, Nobody, Stranger},
        {"for root alone in the second folder", {none, closed}, Root, Nobody},
        {"for root alone in both", {closed, closed}, Root, Root},
        {"a stranger's own", {own, none}, Stranger, Root},
        {"a stranger's own, and another user", {own, none}, Stranger, Nobody},
        {"a stranger's own, and another user first", {own, none}, Nobody, Stranger},
        {"a stranger's own in the second folder", {none, own}, Nobody, Stranger},
        {"a stranger's own in both", {own, own}, Stranger, Root},
        {"made in the second folder by one who could not write to the first", {closed, open}, Nobody, Root},
        {"in the second folder from before", {none, open}, Root, Nobody},
    };
    for (const auto& row : rows) {
        const LockName name;
        for (const int folder : {0, 1}) {
            const auto [owner, mode] = row.Files[folder];
            if (mode < 0)
                continue;
            const int file = ::open(name.FileIn(Folders[folder]).c_str(), O_CREAT | O_EXCL, 0600);
            EXPECT_EQ(fchown(file, owner, owner) | fchmod(file, static_cast<mode_t>(mode)) | close(file), 0);
        }
        EXPECT_TRUE(Meet(name, row.First, row.Second)) << row.Name;
    }
}

// The waiting process takes the lock on the file that is at the path then, where all others look for it. The
// other folder, where it could meet them too, is out of its reach.
TEST(LockFile, ThatIsRemovedWhileItIsWaitedForIsNone)
{
    const LockName name;
    const bool isFirst = access(Folders[0], W_OK) == 0;
    ASSERT_EQ(symlink("nowhere", name.FileIn(Folders[isFirst ? 1 : 0]).c_str()) == 0, isFirst);
    _MY_LOCK lock;
    ASSERT_EQ(CMySemLock::AcquireSymLock(lock, name.Text.c_str()), 0);
    Other waiting([&] { return Take(name); });
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(unlink(name.FileIn(Folders[isFirst ? 0 : 1]).c_str()), 0);
    CMySemLock::ReleaseSymLock(lock);
    EXPECT_EQ(waiting.Told(), 0);
    EXPECT_TRUE(IsHeldUntil(name, [&] { waiting.Kill(); }));
}

// A pipe of that name does not hold anyone up, and one file under both paths keeps no process from itself.
TEST(LockFile, MayBeOfAnotherKindOrOneInBothFolders)
{
    const LockName name, other;
    ASSERT_EQ(mkfifo(name.FileIn(Folders[0]).c_str(), 0666), 0);
    EXPECT_EQ(Attempt(name.Text).Error, 0);
    close(open(other.FileIn(Folders[0]).c_str(), O_CREAT | O_EXCL, 0644));
    if (link(other.FileIn(Folders[0]).c_str(), other.FileIn(Folders[1]).c_str()) != 0)
        GTEST_SKIP() << "the folders are on two file systems";
    EXPECT_EQ(Attempt(other.Text).Error, 0);
}

// Whoever opens it first makes it, for every user to open whatever the umask; another's file is taken as it
// is.
TEST(LockFile, IsOpenToEveryUserOrAsAStrangerMadeItMeanwhile)
{
    for (const bool isMadeMeanwhile : {false, true}) {
        const LockName name;
        const mode_t before = umask(077);
        isStrangerQuick = isMadeMeanwhile;
        EXPECT_EQ(Attempt(name.Text).Error, 0);
        isStrangerQuick = false;
        umask(before);
        struct stat status = {};
        stat(name.FileIn(access(Folders[0], W_OK) == 0 ? Folders[0] : Folders[1]).c_str(), &status);
        EXPECT_EQ(status.st_mode, S_IFREG | (isMadeMeanwhile ? 0600U : 0644U));
    }
}

// Nor does a program that this process starts have it.
TEST(LockFile, IsNotLeftOpen)
{
    const LockName name;
    const std::vector<int> before = OpenFiles();
    _MY_LOCK lock;
    ASSERT_EQ(CMySemLock::AcquireSymLock(lock, name.Text.c_str()), 0);
    for (const int file : OpenFiles()) {
        const bool isNew = std::find(before.begin(), before.end(), file) == before.end();
        EXPECT_TRUE(!isNew || (fcntl(file, F_GETFD) & FD_CLOEXEC) != 0);
    }
    CMySemLock::ReleaseSymLock(lock);
    EXPECT_EQ(OpenFiles(), before);
}

TEST(LockInAForkedProcess, IsItsParentsAlone)
{
    const LockName name;
    pid_t left = 0;
    {
        Other holder([&] {
            const int error = Take(name);
            const pid_t child = fork();
            if (child == 0)
                StayUntilKilled();
            return error == 0 ? child : -1;
        });
        left = holder.Told();
    }
    ASSERT_GT(left, 0);
    EXPECT_EQ(Attempt(name.Text).Error, 0) << "the holder is dead, and its child alive";
    kill(left, SIGKILL);

    _MY_LOCK lock;
    ASSERT_EQ(CMySemLock::AcquireSymLock(lock, name.Text.c_str()), 0);
    Other child([&] {
        CMySemLock::ReleaseSymLock(lock);
        return 0;
    });
    EXPECT_EQ(child.Told(), 0);
    EXPECT_TRUE(IsHeldUntil(name, [&] { CMySemLock::ReleaseSymLock(lock); })) << "a child gave it back";
}

} // namespace
