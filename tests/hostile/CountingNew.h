// The program's operator new, counted: how much it holds, and an allocation that fails on demand. For tests
// on one thread.

#pragma once

#include <cstddef>

namespace CountingNew {

/// Bytes that the program holds, with what the heap needs beside each block.
std::size_t Held();

/// The most that it held since the last call of StartPeak.
std::size_t Peak();
void StartPeak();

/// Allocations so far.
std::size_t Count();

/// Lets the `n`th allocation from now on fail, once, with std::bad_alloc; 0: none.
void FailAt(std::size_t n);

/// Whether the failure asked for came about.
bool HasFailed();

} // namespace CountingNew
