// The walk over a structure table. Of each structure it reads:
//
//   offset  width   field
//   00h     1       type; 127 ends the table
//   01h     1       length of the formatted area, this header included
//   02h     2       handle, little-endian
//   length          string set: strings, each ended by a NUL, and one more NUL; two NULs where there are none
//
// The next structure begins right behind the string set.

#pragma once

#include "SMBIOSProtocol/SMBiosStructure.h"

#include <cstddef>
#include <limits>
#include <vector>

namespace Protocol::SMBIOS {

constexpr unsigned char InactiveStructure = 126;
constexpr unsigned char EndStructure = 127;

constexpr std::size_t HeaderSize = 4;
constexpr std::size_t LengthOffset = 1; ///< of the byte that says how long the formatted area is

/// What differs between the walks over a table.
struct WalkRules {
    /// A structure whose length byte says less ends the walk.
    std::size_t ShortestStructure;
    /// Bytes of a string that are read at a time. A longer string falls into pieces, and the byte behind each
    /// full piece is lost.
    std::size_t LongestPiece;
    /// Whether two NULs right behind the formatted area are one empty string.
    bool NoStringsAreOne;
};

constexpr std::size_t WholeString = std::numeric_limits<std::size_t>::max();
constexpr WalkRules WalkByVersion{0, 255, true};
constexpr WalkRules WalkWithNewest{HeaderSize, WholeString, false};

/// Goes over the structures of a table from the first to the end structure, to the last byte, or to a
/// structure that the table does not hold whole.
class Walk {
public:
    Walk(const unsigned char* table, std::size_t size, const WalkRules& rules)
        : Begin(table), Position(table), End(table + size), Rules(rules)
    {
    }

    /// Reads the next structure, the end structure included. False where the walk has ended; what `structure`
    /// holds then means nothing.
    bool Next(SMBiosStructure& structure);

    /// Bytes from the start of the table to the end of the last structure that Next gave.
    std::size_t Size() const { return static_cast<std::size_t>(Position - Begin); }

    /// Whether the last structure was an end structure.
    bool HasEnd() const { return IsAtEnd; }

    /// Whether the walk ended at a structure that is too short, or that the table does not hold whole.
    bool IsDamaged() const { return HasFailed; }

private:
    std::size_t Left(const unsigned char* position) const { return static_cast<std::size_t>(End - position); }
    bool ReadFormattedArea(const unsigned char*& position, SMBiosStructure& structure) const;
    bool ReadStrings(const unsigned char*& position, std::vector<std::string_view>& strings) const;

    const unsigned char* Begin;
    const unsigned char* Position;
    const unsigned char* End;
    WalkRules Rules;
    bool IsAtEnd = false;
    bool HasFailed = false;
};

/// How far the structures of a table reach.
struct Extent {
    std::size_t Size = 0; ///< bytes, the end structure included; 0 where the table ends within a structure
    bool HasEnd = false;  ///< whether there is an end structure
    std::size_t StructureCount = 0;
    std::size_t LargestStructure = 0; ///< bytes, its strings included
};

Extent ExtentOf(const std::vector<unsigned char>& table);

} // namespace Protocol::SMBIOS
