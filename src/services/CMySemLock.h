// A lock known by name to all processes of the machine.

#pragma once

#include <cstdint>

/// A lock that is held.
struct _MY_LOCK {
    std::intptr_t System = -1; ///< the system's reference to it; -1: none
};

namespace Common {

class CMySemLock {
public:
    /// Waits for the lock `name`, takes it and fills `lock`. It excludes other processes and the other
    /// threads of this one. A holder that dies frees it, and a child that is forked meanwhile does not hold
    /// it. Waiting ends after a while (Patience.h). Returns 0, or the system's error if the lock was not
    /// acquired: that is logged, and the caller goes on without the lock.
    static int AcquireSymLock(_MY_LOCK& lock, const char* name);

    /// Gives the lock back. Has no effect if the lock was never acquired.
    static void ReleaseSymLock(_MY_LOCK lock);
};

} // namespace Common
