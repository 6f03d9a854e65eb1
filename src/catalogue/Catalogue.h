// The catalogue of a revision: which structure types are read, and how.

#pragma once

#include "catalogue/Definition.h"

#include <array>
#include <unordered_map>

namespace Protocol::SMBIOS::Catalogue {

/// All structure types that the data describe, by rising number.
const std::array<const Type*, 49>& Types();

using Tables = std::unordered_map<unsigned char, SMBTable>; ///< by structure type

/// The types that a revision reads of a table of `version`, as tables without instances.
Tables TablesOf(Revision revision, TableVersion version = {});

/// The same for a type that no data describe.
SMBTable TableWithoutData();

} // namespace Protocol::SMBIOS::Catalogue
