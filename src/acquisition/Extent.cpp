// A structure, as far as it is read here:
//
//   offset  width  field
//   00h     1      type; 127 ends the table
//   01h     1      length of the formatted area, which begins here
//   length         strings, each with a NUL behind it, and another NUL; two NULs where there is none

#include "acquisition/Extent.h"

#include <algorithm>
#include <iterator>

namespace Protocol::SMBIOS {

namespace {

constexpr unsigned char EndOfTable = 127;
constexpr std::size_t HeaderSize = 4;

// The end of the structure at `start`, its strings included; 0 where the table ends before it.
std::size_t EndOfStructure(const std::vector<unsigned char>& table, std::size_t start)
{
    if (table.size() - start < HeaderSize || table.size() - start < table[start + 1])
        return 0;
    constexpr unsigned char TwoNuls[] = {0, 0};
    const auto strings = table.begin() + static_cast<std::ptrdiff_t>(start + table[start + 1]);
    const auto end = std::search(strings, table.end(), std::begin(TwoNuls), std::end(TwoNuls));
    return end == table.end() ? 0 : static_cast<std::size_t>(end - table.begin()) + sizeof TwoNuls;
}

} // namespace

Extent ExtentOf(const std::vector<unsigned char>& table)
{
    Extent extent;
    while (!extent.HasEnd && extent.Size < table.size()) {
        const std::size_t start = extent.Size;
        extent.Size = EndOfStructure(table, start);
        if (extent.Size == 0)
            return extent;
        ++extent.StructureCount;
        extent.LargestStructure = std::max(extent.LargestStructure, extent.Size - start);
        extent.HasEnd = table[start] == EndOfTable;
    }
    return extent;
}

} // namespace Protocol::SMBIOS
