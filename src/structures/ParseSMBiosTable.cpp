// The walk over the structure table. Of each structure it reads:
//
//   offset  width   field
//   00h     1       type; 127 ends the table
//   01h     1       length of the formatted area, this header included
//   02h     2       handle, little-endian
//   length          string set: strings, each ended by a NUL, and one more NUL; two NULs where there are none
//
// The next structure begins right behind the string set. By version and with the newest catalogue the walk
// differs in what it makes of long strings, of the two NULs, and of a length below that of the header.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "catalogue/Catalogue.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace Protocol::SMBIOS {

namespace {

constexpr unsigned char Inactive = 126;
constexpr unsigned char EndOfTable = 127;
constexpr std::ptrdiff_t HeaderSize = 4;

/// Bytes of one string that are read at a time by version. A longer string falls into pieces, and the byte
/// behind each full piece is lost.
constexpr std::ptrdiff_t LongestPiece = 255;
constexpr std::ptrdiff_t WholeString = std::numeric_limits<std::ptrdiff_t>::max();

// Reads the string set at `position` into `strings`, at most `longest` bytes at a time, and moves `position`
// behind it. False where the set does not end before `end`.
bool ReadStringSet(unsigned char*& position, unsigned char* end, std::ptrdiff_t longest,
                   std::vector<std::string_view>& strings)
{
    constexpr std::size_t UsualCount = 4;
    strings.reserve(UsualCount);
    do {
        unsigned char* const limit = end - position > longest ? position + longest : end;
        unsigned char* const stop = std::find(position, limit, static_cast<unsigned char>(0));
        if (end - stop < 2) // the byte that ended the string, and the one behind it
            return false;
        strings.emplace_back(reinterpret_cast<const char*>(position),
                             static_cast<std::size_t>(stop - position));
        position = stop + 1;
    } while (*position != 0);
    ++position;
    return true;
}

// Reads the formatted area at `position` and moves `position` behind it. False where it does not end before
// `end`.
bool ReadFormattedArea(unsigned char*& position, const unsigned char* end, SMBiosStructure& structure)
{
    if (end - position < HeaderSize)
        return false;
    structure.Type = position[0];
    structure.Data = position;
    structure.Handle = static_cast<unsigned short>(position[2] | position[3] << 8);
    const unsigned char length = position[1];
    if (end - position < length)
        return false;
    position += length;
    return true;
}

bool ReadByVersion(unsigned char*& position, unsigned char* end, SMBiosStructure& structure)
{
    return ReadFormattedArea(position, end, structure) &&
           ReadStringSet(position, end, LongestPiece, structure.Strings);
}

bool ReadWithNewest(unsigned char*& position, unsigned char* end, SMBiosStructure& structure)
{
    const unsigned char* const start = position;
    if (!ReadFormattedArea(position, end, structure) || position - start < HeaderSize ||
        !ReadStringSet(position, end, WholeString, structure.Strings))
        return false;
    if (structure.Strings.size() == 1 && structure.Strings.front().empty())
        structure.Strings.clear();
    return true;
}

// Calls `keep` with each structure of the table, up to its end or the first that `read` finds damaged.
template <typename Read, typename Keep>
void Walk(unsigned char* position, std::size_t length, Read read, Keep keep)
{
    unsigned char* const end = position + length;
    while (position != end && *position != EndOfTable) {
        SMBiosStructure structure;
        if (!read(position, end, structure))
            return;
        keep(structure);
    }
}

void OrderByHandle(SMBTable& table)
{
    table.InstancesByHandle.resize(table.Instances.size());
    std::iota(table.InstancesByHandle.begin(), table.InstancesByHandle.end(), std::size_t{0});
    std::sort(table.InstancesByHandle.begin(), table.InstancesByHandle.end(),
              [&](std::size_t left, std::size_t right) {
                  const unsigned short leftHandle = table.Instances[left].Handle;
                  const unsigned short rightHandle = table.Instances[right].Handle;
                  return leftHandle != rightHandle ? leftHandle < rightHandle : left < right;
              });
}

} // namespace

void SMBIOSProtocolImpl::ParseSMBiosTable()
{
    Walk(TableBase, TableLength, ReadByVersion, [this](SMBiosStructure& structure) {
        const auto table = TypeTables.find(structure.Type);
        if (table != TypeTables.end())
            table->second.Instances.push_back(std::move(structure));
    });
    IndexByHandle();
}

void SMBIOSProtocolImpl::ParseWithNewest()
{
    Walk(TableBase, TableLength, ReadWithNewest, [this](SMBiosStructure& structure) {
        if (structure.Type == Inactive)
            return;
        auto table = TypeTables.find(structure.Type);
        if (table == TypeTables.end())
            table = TypeTables.emplace(structure.Type, Catalogue::TableWithoutData()).first;
        table->second.Instances.push_back(std::move(structure));
    });
    IndexByHandle();
}

void SMBIOSProtocolImpl::IndexByHandle()
{
    for (auto& [type, table] : TypeTables) {
        OrderByHandle(table);
        for (const SMBiosStructure& structure : table.Instances) {
            const SMBiosStructure*& last = StructuresByHandle[structure.Handle];
            if (last == nullptr || last->Data < structure.Data)
                last = &structure;
        }
    }
}

} // namespace Protocol::SMBIOS
