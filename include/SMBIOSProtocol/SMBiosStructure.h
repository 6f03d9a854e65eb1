/// \file
/// One raw structure of the table, and the link from a field to a structure.

#pragma once

#include <string_view>
#include <vector>

namespace Protocol::SMBIOS {

/// A structure as it stands in the table. Valid as long as the table memory is.
struct SMBiosStructure {
    unsigned char Type = 0;                ///< structure type of the standard
    const unsigned char* Data = nullptr;   ///< its first byte in the table
    unsigned short Handle = 0;             ///< number by which other structures name it
    std::vector<std::string_view> Strings; ///< element n - 1 is string number n; by version never empty

    /// String number `n`, empty where the structure has none.
    std::string_view StringAt(unsigned char n) const
    {
        return n == 0 || n > Strings.size() ? std::string_view() : Strings[n - 1U];
    }
};

/// A decoded field that holds the handle of another structure. Its texts are the catalogue's and the tree's.
struct SubTypeLink {
    int ParentType = 0;         ///< type of the structure that holds the field
    std::string_view FieldName; ///< as the catalogue has it
    std::string_view FieldPath; ///< path of the field's node, under which the other structure's nodes go
    int LinkedHandle = 0;       ///< handle of the other structure, never 0, FFFEh or FFFFh
};

} // namespace Protocol::SMBIOS
