// The catalogue of a revision: which structure types are read, and how.

#pragma once

#include "catalogue/Definition.h"

#include <unordered_map>

namespace Protocol::SMBIOS::Catalogue {

/// All that `revision` has of the data below types/, by structure type, without instances.
std::unordered_map<unsigned char, SMBTable> Build(Revision revision);

} // namespace Protocol::SMBIOS::Catalogue
