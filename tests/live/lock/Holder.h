// Another process that holds the lock.

#pragma once

#include <memory>
#include <string>

class Holder {
public:
    /// Starts this program anew to take the lock `name`, and waits until it says that it has it.
    explicit Holder(const std::string& name);
    /// Ends the process where it still runs, which does not give the lock back.
    ~Holder();
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    void GiveBack(); ///< has the lock given back, and waits for the process to end
    void Kill();     ///< ends the process from outside while it holds the lock

    /// What the other process does: takes the lock, says so on its standard output, and gives it back when
    /// its standard input ends. Gives its exit status.
    static int Main(const char* name);

private:
    struct Process;
    std::unique_ptr<Process> Other;
};
