/// \file
/// The catalogue's entry for one structure type.

#pragma once

#include "SMBIOSProtocol/SMBiosStructure.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Protocol::SMBIOS {

namespace Catalogue {
struct Field;
struct Section;
} // namespace Catalogue

/// How a field's bytes are printed.
enum class FieldInterpretation {
    Decimal = 1, ///< little-endian number in decimal
    String = 2,  ///< string number, resolved to its string
    Hex = 3,     ///< bytes in hexadecimal behind "0X"
    HexBare = 4, ///< bytes in hexadecimal

    // of the newest catalogue alone
    Signed = 5,   ///< little-endian two's complement in decimal
    Unsigned = 6, ///< as Decimal, which gives eight bytes a sign
};

/// How the number in a field becomes words. Row 0 of the field's texts says which it is.
enum class ValueForm : unsigned char {
    Bits, ///< a leaf for each reported bit
    Enumeration,
    MaskedEnumeration, ///< of the low seven bits
    BiosRomSize,
    ProcessorStatus,
    VoltageCapability,
    CacheSize,
    CacheConfiguration,
    Flags,
    HardwareSecuritySettings,
    IpmiSpecRev,
    Uuid,
};

/// The texts of one field: an ordered map from key to text. Row 0 is the header, which says how the rest is
/// read.
class ValueTable {
public:
    /// A text behind the header.
    struct Row {
        int Key;               ///< from 1 on; what it counts, the header says
        std::string_view Text; ///< as it stands in the tree
    };

    /// A table without rows behind `header`.
    explicit ValueTable(std::string header);

    /// Row 0: "ENUM", "ENUM_MASK", a text of 0 and 1 with a 1 for each reported bit, or a decoder's word.
    const std::string& Header() const { return HeaderText; }

    /// What the header stands for.
    ValueForm Form() const { return HeaderForm; }

    /// The text at `key`, empty where no row has it.
    std::string_view Text(int key) const;

    /// The rows behind the header, by rising key.
    const std::vector<Row>& Rows() const { return RowsByKey; }

    /// Makes room for `rowCount` rows in all.
    void Reserve(std::size_t rowCount) { RowsByKey.reserve(rowCount); }

    /// Adds a row whose key is above all others.
    void Append(int key, std::string_view text) { RowsByKey.push_back({key, text}); }

private:
    std::string HeaderText;
    ValueForm HeaderForm;
    std::vector<Row> RowsByKey;
};

/// One field of the formatted area. It begins where the field before it ends, the first behind the header.
struct SMBField {
    std::string_view Name;              ///< as it stands in paths
    int Width;                          ///< bytes; 17: one byte that holds a string number
    FieldInterpretation Interpretation; ///< how its bytes become text
    const ValueTable* Values = nullptr; ///< its texts; null: its bytes' text stands for itself
};

/// The texts of a type's fields, by field name.
using ValueTableMap = std::unordered_map<std::string_view, ValueTable>;

/// What the newest catalogue reads of a structure in one go.
struct SMBSection {
    const Catalogue::Section* Data;

    /// The texts of the section's fields, in their order: one entry a field, of a packed one as many as it
    /// has parts. Null where there are none.
    std::vector<const ValueTable*> Values;
};

/// How the structures of one type are read. Made once a process, and shared by all objects.
struct SMBDefinition {
    std::vector<SMBField> Fields; ///< of the formatted area, in its order
    bool Indexed = false;         ///< each structure has a node of its own, with an index from 1
    ValueTableMap ValueTables;    ///< by field name

    /// What is read of a structure with the newest catalogue, Fields included; none: Fields, one behind the
    /// other.
    std::vector<SMBSection> Sections;
};

/// One structure type: how its structures are read, and those that the table holds.
struct SMBTable {
    const SMBDefinition* Definition = nullptr; ///< never null; lives until the process ends
    std::vector<SMBiosStructure> Instances;    ///< in table order

    /// Positions in Instances, by handle and then in table order.
    std::vector<std::size_t> InstancesByHandle;
};

} // namespace Protocol::SMBIOS
