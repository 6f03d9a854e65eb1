/// \file
/// One structure type, as it is read.

#pragma once

#include "SMBIOSProtocol/SMBiosStructure.h"

#include <cstddef>
#include <vector>

namespace Protocol::SMBIOS {

namespace Catalogue {
struct Type;
enum Revision : unsigned char;
} // namespace Catalogue

/// One structure type: how its structures are read, and those that the table holds.
struct SMBTable {
    const Catalogue::Type* Definition; ///< fields, texts and sections of all revisions; constant data
    Catalogue::Revision ReadAs;        ///< the revision whose fields and texts are read
    std::size_t SectionCount;          ///< sections of the definition that are read behind its fields

    std::vector<SMBiosStructure> Instances = {}; ///< in table order

    /// Positions in Instances, by handle and then in table order.
    std::vector<std::size_t> InstancesByHandle = {};
};

} // namespace Protocol::SMBIOS
