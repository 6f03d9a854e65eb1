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
    /// Waits for the lock `name`, takes it and fills `lock`. Two threads of one process exclude each other
    /// like two processes do, a holder that dies frees the lock, and a child forked meanwhile does not hold
    /// it. Waiting ends after a while (Patience.h). Gives 0, or the system's error where the lock cannot be
    /// had; that is logged, and a caller goes on without it.
    static int AcquireSymLock(_MY_LOCK& lock, const char* name);

    /// Gives the lock back. One that could not be had is no matter.
    static void ReleaseSymLock(_MY_LOCK lock);
};

} // namespace Common
