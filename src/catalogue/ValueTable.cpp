#include "SMBIOSProtocol/SMBTable.h"

#include <algorithm>

namespace Protocol::SMBIOS {

std::string_view ValueTable::Text(int key) const
{
    const auto row = std::lower_bound(RowsByKey.begin(), RowsByKey.end(), key,
                                      [](const Row& each, int wanted) { return each.Key < wanted; });
    return row != RowsByKey.end() && row->Key == key ? row->Text : std::string_view();
}

} // namespace Protocol::SMBIOS
