// The catalogue of a revision: which structure types are read, and how. Each is made when it is first asked
// for, by any thread, and lives until the process ends.

#pragma once

#include "catalogue/Definition.h"

#include <unordered_map>

namespace Protocol::SMBIOS::Catalogue {

using Definitions = std::unordered_map<unsigned char, SMBDefinition>; ///< by structure type
using Tables = std::unordered_map<unsigned char, SMBTable>;           ///< by structure type

/// All that one of the revisions V2_3 to V2_7 has of the data below types/.
const Definitions& DefinitionsOf(Revision revision);

/// All data below types/, with sections.
const Definitions& NewestDefinitions();

/// Those of a revision V2_3 to V2_7, as tables without instances.
Tables TablesOf(Revision revision);

/// Those of the newest revision that a table of `version` is read with, as tables without instances.
Tables NewestTables(TableVersion version);

/// The same for a type that no data describe.
SMBTable TableWithoutData();

} // namespace Protocol::SMBIOS::Catalogue
