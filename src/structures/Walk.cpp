#include "structures/Walk.h"

#include "structures/LittleEndian.h"

#include <algorithm>

namespace Protocol::SMBIOS {

namespace {

constexpr std::size_t HandleOffset = 2;

} // namespace

bool Walk::Next(SMBiosStructure& structure)
{
    if (Ending != TableEnd::LastByte || Position == Limit)
        return false;
    const bool isEnd = *Position == EndStructure;
    const unsigned char* position = Position;
    structure.Type = *Position;
    const bool isWhole = ReadFormattedArea(position, structure) && ReadStrings(position, structure.Strings);
    if (!isWhole && !isEnd)
        return false;
    if (isEnd)
        Ending = TableEnd::EndStructure;
    Position = isWhole ? position : Limit;
    return true;
}

// Moves `position` behind the formatted area. False where it is too short, or leaves the table.
bool Walk::ReadFormattedArea(const unsigned char*& position, SMBiosStructure& structure)
{
    Ending = TableEnd::CutStructure;
    if (Left(position) < HeaderSize)
        return false;
    const std::size_t length = position[LengthOffset];
    if (length < Rules.ShortestStructure)
        Ending = TableEnd::ShortStructure;
    if (length < Rules.ShortestStructure || Left(position) < length)
        return false;
    structure.Data = position;
    structure.Handle = static_cast<unsigned short>(LittleEndian(position + HandleOffset, 2));
    position += length;
    Ending = TableEnd::LastByte;
    return true;
}

// Moves `position` behind the string set. False where the set does not end within the table.
bool Walk::ReadStrings(const unsigned char*& position, std::vector<std::string_view>& strings)
{
    constexpr std::size_t UsualCount = 4;
    strings.clear();
    strings.reserve(UsualCount);
    do {
        const unsigned char* const limit = position + std::min(Left(position), Rules.LongestPiece);
        const unsigned char* const stop = std::find(position, limit, static_cast<unsigned char>(0));
        if (Left(stop) < 2) { // the byte that ended the string, and the one behind it
            Ending = TableEnd::CutStrings;
            return false;
        }
        strings.emplace_back(reinterpret_cast<const char*>(position),
                             static_cast<std::size_t>(stop - position));
        position = stop + 1;
    } while (*position != 0);
    ++position;
    if (!Rules.NoStringsAreOne && strings.size() == 1 && strings.front().empty())
        strings.clear();
    return true;
}

TableExtent ExtentOf(const std::vector<unsigned char>& table, const WalkRules& rules)
{
    TableExtent extent;
    Walk walk(table.data(), table.size(), rules);
    SMBiosStructure structure;
    while (walk.Next(structure)) {
        ++extent.StructureCount;
        extent.LargestStructure = std::max(extent.LargestStructure, walk.Size() - extent.Size);
        extent.Size = walk.Size();
    }
    extent.End = walk.End();
    return extent;
}

} // namespace Protocol::SMBIOS
