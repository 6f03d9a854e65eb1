// Counts what operator new hands out in this program.

#pragma once

#include <cstddef>

namespace Memory {

struct Use {
    std::size_t Held; ///< bytes held when the measurement ended, above what was held at its start
    std::size_t Peak; ///< the most that was held meanwhile
};

/// Begins a measurement. One at a time, on one thread.
void Begin();

/// Use since Begin.
Use SinceBegin();

} // namespace Memory
