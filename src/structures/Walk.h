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
#include "SMBIOSProtocol/TableImage.h"

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
/// For a table whose entry point gives no exact length: structures of less than 4 bytes count too.
constexpr WalkRules WalkToMeasure{0, WholeString, false};

/// Goes over the structures of a table from the first to the end structure, to the last byte, or to a
/// structure that the table does not hold whole. An end structure that is cut off ends the table too: nothing
/// is behind it.
class Walk {
public:
    Walk(const unsigned char* table, std::size_t size, const WalkRules& rules)
        : Begin(table), Position(table), Limit(table + size), Rules(rules)
    {
    }

    /// Reads the next structure, the end structure included. False where the walk has ended; what `structure`
    /// holds then means nothing.
    bool Next(SMBiosStructure& structure);

    /// Bytes from the start of the table to the end of the last structure that Next gave.
    std::size_t Size() const { return static_cast<std::size_t>(Position - Begin); }

    /// Why the walk has ended.
    TableEnd End() const { return Ending; }

private:
    std::size_t Left(const unsigned char* position) const
    {
        return static_cast<std::size_t>(Limit - position);
    }
    bool ReadFormattedArea(const unsigned char*& position, SMBiosStructure& structure);
    bool ReadStrings(const unsigned char*& position, std::vector<std::string_view>& strings);

    const unsigned char* Begin;
    const unsigned char* Position;
    const unsigned char* Limit; ///< the end of the table
    WalkRules Rules;
    TableEnd Ending = TableEnd::LastByte; ///< any other: the walk goes no further
};

TableExtent ExtentOf(const std::vector<unsigned char>& table, const WalkRules& rules);

} // namespace Protocol::SMBIOS
