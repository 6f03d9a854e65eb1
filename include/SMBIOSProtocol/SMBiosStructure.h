// One raw structure of the table, and the link from a field to a structure.

#pragma once

#include <string>
#include <vector>

namespace Protocol::SMBIOS {

/// A structure as it stands in the table. Valid as long as the table memory is.
struct SMBiosStructure {
    unsigned char Type = 0;
    unsigned char* Data = nullptr; ///< its first byte in the table
    unsigned short Handle = 0;
    std::vector<std::string> Strings; ///< element n - 1 is string number n; never empty
};

/// A decoded field that holds the handle of another structure.
struct SubTypeLink {
    int ParentType = 0; ///< type of the structure that holds the field
    std::string FieldName;
    std::string FieldPath; ///< path of the field's node, under which the other structure's nodes go
    int LinkedHandle = 0;
};

} // namespace Protocol::SMBIOS
