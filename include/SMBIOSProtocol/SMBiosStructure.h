// One raw structure of the table, and the link from a field to a structure.

#pragma once

#include <string>
#include <vector>

namespace Protocol::SMBIOS {

/// A structure as it stands in the table. Valid as long as the table memory is.
struct SMBiosStructure {
    unsigned char Type = 0;           ///< structure type of the standard
    unsigned char* Data = nullptr;    ///< its first byte in the table
    unsigned short Handle = 0;        ///< number by which other structures name it
    std::vector<std::string> Strings; ///< element n - 1 is string number n; never empty
};

/// A decoded field that holds the handle of another structure.
struct SubTypeLink {
    int ParentType = 0;    ///< type of the structure that holds the field
    std::string FieldName; ///< as the catalogue has it
    std::string FieldPath; ///< path of the field's node, under which the other structure's nodes go
    int LinkedHandle = 0;  ///< handle of the other structure, never 0, FFFEh or FFFFh
};

} // namespace Protocol::SMBIOS
