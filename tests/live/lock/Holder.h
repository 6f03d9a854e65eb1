// Another process that holds the lock, and a name for the lock that no one else uses.

#pragma once

#include <cstdio>
#include <string>

struct LockName {
    LockName();
    LockName(const LockName&) = delete;
    LockName& operator=(const LockName&) = delete;
    ~LockName(); ///< removes the files behind the lock, on systems that have some

    std::string FileIn(const std::string& folder) const { return folder + "/" + Text + ".lock"; }

    const std::string Text;
};

class Holder {
public:
    /// Starts this program anew to take the lock, and waits until it has it.
    explicit Holder(const LockName& name);
    ~Holder(); ///< as GiveBack
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    void GiveBack(); ///< has the lock given back, and waits for the process to end
    void Kill();     ///< has the process killed while it holds the lock

    /// What the other process does. Gives its exit status.
    static int Main(const char* name);

    static std::string Program; ///< this program's file

private:
    std::FILE* Input; ///< of the other process: a byte kills it, the end has it give the lock back
};
