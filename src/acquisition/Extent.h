// How far the structures of a table reach.

#pragma once

#include <cstddef>
#include <vector>

namespace Protocol::SMBIOS {

/// What a table holds, up to its end structure, this included, or up to its last structure where it has no
/// end.
struct Extent {
    std::size_t Size = 0; ///< bytes; 0 where the table ends within a structure
    bool HasEnd = false;
    std::size_t StructureCount = 0;
    std::size_t LargestStructure = 0; ///< bytes, its strings included
};

Extent ExtentOf(const std::vector<unsigned char>& table);

} // namespace Protocol::SMBIOS
