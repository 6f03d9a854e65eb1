// The program's operator new, counted: how much it holds, and an allocation that fails on demand. For
// benchmarks and tests on one thread.

#pragma once

#include <cstddef>

namespace CountingNew {

extern std::size_t Held;   ///< bytes that the program holds, with what the heap needs beside each block
extern std::size_t Peak;   ///< the most that it held since this was last set
extern std::size_t Count;  ///< allocations so far
extern std::size_t FailAt; ///< the Count of the one that fails with std::bad_alloc; 0: none

} // namespace CountingNew
