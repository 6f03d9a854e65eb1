// From the table to its structures, by type in the order of the table and by handle.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "catalogue/Catalogue.h"
#include "structures/Walk.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace Protocol::SMBIOS {

namespace {

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

// By version structures of other types than the catalogue's are passed over. The newest catalogue has bytes
// and strings of any type that occurs, but for inactive structures and the end.
void SMBIOSProtocolImpl::ParseSMBiosTable()
{
    const bool isNewest = HowRead == Reading::Newest;
    Walk walk(TableBase, TableLength, isNewest ? WalkWithNewest : WalkByVersion);
    SMBiosStructure structure;
    while (walk.Next(structure)) {
        auto table = TypeTables.find(structure.Type);
        if (table == TypeTables.end() && isNewest && structure.Type != InactiveStructure &&
            structure.Type != EndStructure)
            table = TypeTables.emplace(structure.Type, Catalogue::TableWithoutData()).first;
        if (table != TypeTables.end())
            table->second.Instances.push_back(std::move(structure));
    }

    for (auto& [type, table] : TypeTables) {
        OrderByHandle(table);
        for (const SMBiosStructure& instance : table.Instances) {
            const SMBiosStructure*& last = StructuresByHandle[instance.Handle];
            if (last == nullptr || last->Data < instance.Data)
                last = &instance;
        }
    }
}

} // namespace Protocol::SMBIOS
