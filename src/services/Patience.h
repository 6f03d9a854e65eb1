// How long a process waits for the named lock.
//
// A stranger can sit on the lock. The first wait is long; after one in vain the next are short, and each in
// vain halves the one behind it, so that no number of them adds up to much. Once the lock is had, it is worth
// a long wait again.

#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>

namespace Common {

class Patience {
public:
    std::chrono::milliseconds Wait() const { return std::chrono::milliseconds(Next); }

    void HasWaitedInVain() { Next = std::clamp(Next / 2, Shortest, LongestAfterOneInVain); }
    void HasTheLock() { Next = Longest; }

private:
    static constexpr int Longest = 10'000; // milliseconds, as the others
    static constexpr int LongestAfterOneInVain = 100;
    static constexpr int Shortest = 5;

    std::atomic<int> Next{Longest};
};

} // namespace Common
