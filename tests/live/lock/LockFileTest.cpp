// The files behind the lock on Linux, in folders where strangers can write.

#include "Attempt.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using Common::CMySemLock;

namespace {

constexpr const char* Folders[] = {"/run/lock", "/tmp"};
constexpr uid_t Nobody = 65534;

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

// A pipe of that name does not hold anyone up.
TEST(LockFile, MayBeOfAnotherKind)
{
    const LockName name;
    ASSERT_EQ(mkfifo(name.FileIn(Folders[0]).c_str(), 0666), 0);
    EXPECT_EQ(Attempt(name.Text).Error, 0);
}

TEST(LockFile, IsOpenToEveryUserAndWritableByItsOwnerAlone)
{
    const LockName name;
    const mode_t before = umask(077);
    EXPECT_EQ(Attempt(name.Text).Error, 0);
    umask(before);
    struct stat status = {};
    ASSERT_EQ(stat(name.FileIn(access(Folders[0], W_OK) == 0 ? Folders[0] : Folders[1]).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFREG | 0644U);
}

// A forked process has open what its parent has.
TEST(LockFile, IsFreeOnceGivenBackWhateverWasForked)
{
    const LockName name;
    _MY_LOCK lock;
    ASSERT_EQ(CMySemLock::AcquireSymLock(lock, name.Text.c_str()), 0);
    const pid_t child = fork();
    if (child == 0) {
        pause();
        _exit(0);
    }
    CMySemLock::ReleaseSymLock(lock);
    EXPECT_EQ(Attempt(name.Text).Error, 0);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

} // namespace
