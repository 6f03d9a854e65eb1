// The walk over the structure table. Of each structure it reads:
//
//   offset  width   field
//   00h     1       type; 127 ends the table
//   01h     1       length of the formatted area, this header included
//   02h     2       handle, little-endian
//   length          string set: strings, each ended by a NUL, and one more NUL; two NULs where there are none
//
// The next structure begins right behind the string set.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"

#include <algorithm>
#include <numeric>

namespace Protocol::SMBIOS {

namespace {

constexpr unsigned char EndOfTable = 127;
constexpr std::size_t HeaderSize = 4;

/// Bytes of one string that are read at a time. A longer string falls into pieces, and the byte behind each
/// full piece is lost.
constexpr std::ptrdiff_t MaxStringLength = 255;

// Reads the string set at `position` into `strings` and moves `position` behind it. False where the set does
// not end before `end`.
bool ReadStringSet(unsigned char*& position, unsigned char* end, std::vector<std::string>& strings)
{
    do {
        unsigned char* const limit = end - position > MaxStringLength ? position + MaxStringLength : end;
        unsigned char* const stop = std::find(position, limit, static_cast<unsigned char>(0));
        if (end - stop < 2) // the byte that ended the string, and the one behind it
            return false;
        strings.emplace_back(position, stop);
        position = stop + 1;
    } while (*position != 0);
    ++position;
    return true;
}

// Reads the structure at `position` and moves `position` behind it. False where it does not end before `end`.
bool ReadStructure(unsigned char*& position, unsigned char* end, SMBiosStructure& structure)
{
    if (static_cast<std::size_t>(end - position) < HeaderSize)
        return false;
    structure.Type = position[0];
    structure.Data = position;
    structure.Handle = static_cast<unsigned short>(position[2] | position[3] << 8);
    const unsigned char length = position[1];
    if (end - position < length)
        return false;
    position += length;
    return ReadStringSet(position, end, structure.Strings);
}

void IndexByHandle(SMBTable& table)
{
    table.InstancesByHandle.resize(table.Instances.size());
    std::iota(table.InstancesByHandle.begin(), table.InstancesByHandle.end(), std::size_t{0});
    std::stable_sort(table.InstancesByHandle.begin(), table.InstancesByHandle.end(),
                     [&](std::size_t left, std::size_t right) {
                         return table.Instances[left].Handle < table.Instances[right].Handle;
                     });
}

} // namespace

void SMBIOSProtocolImpl::ParseSMBiosTable()
{
    unsigned char* const end = TableBase + TableLength;
    unsigned char* position = TableBase;
    while (position != end && *position != EndOfTable) {
        SMBiosStructure structure;
        if (!ReadStructure(position, end, structure))
            break;
        const auto table = TypeTables.find(structure.Type);
        if (table == TypeTables.end())
            continue;
        StructuresByHandle[structure.Handle] = structure;
        table->second.Instances.push_back(std::move(structure));
    }
    for (auto& [type, table] : TypeTables)
        IndexByHandle(table);
}

} // namespace Protocol::SMBIOS
