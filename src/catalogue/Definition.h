// The form in which the catalogue's data is written: a Type is one structure type of the standard, a Field
// one row of its table, a Row one text of a field's value table. All of it is constant data; Catalogue.cpp
// makes the tables of a revision from it.

#pragma once

#include "SMBIOSProtocol/SMBTable.h"

#include <cstddef>

namespace Protocol::SMBIOS::Catalogue {

enum Revision : unsigned char { V2_3, V2_4, V2_5, V2_6, V2_7 };

/// Width of a field that holds a string number.
constexpr int StringReference = 17;

constexpr FieldInterpretation Decimal = FieldInterpretation::Decimal;
constexpr FieldInterpretation String = FieldInterpretation::String;
constexpr FieldInterpretation Hex = FieldInterpretation::Hex;
constexpr FieldInterpretation HexBare = FieldInterpretation::HexBare;

/// A text and the revisions that have it. Value is the field's value in an enumeration, the bit's number in a
/// bit table, and the row's key in a decoder's table.
struct Row {
    int Value;
    const char* Text;
    Revision From = V2_3;
    Revision To = V2_7;

    constexpr bool Has(Revision revision) const { return From <= revision && revision <= To; }
};

enum class TableKind : unsigned char { None, Enumeration, MaskedEnumeration, Bits, Decoder };

struct Table {
    TableKind Kind = TableKind::None;
    const char* Decoder = "";  ///< header of a decoder's table
    int BitCount = 0;          ///< length of a bit table's header
    const Row* Rows = nullptr; ///< ascending by value; one row a value and revision
    std::size_t RowCount = 0;
};

/// One text a value.
template <std::size_t N>
constexpr Table Enumeration(const Row (&rows)[N])
{
    return {TableKind::Enumeration, "", 0, rows, N};
}

/// One text a value of the low seven bits; bit 7 means something else.
template <std::size_t N>
constexpr Table MaskedEnumeration(const Row (&rows)[N])
{
    return {TableKind::MaskedEnumeration, "", 0, rows, N};
}

/// One text a reported bit, among the lowest `bitCount`.
template <std::size_t N>
constexpr Table Bits(int bitCount, const Row (&rows)[N])
{
    return {TableKind::Bits, "", bitCount, rows, N};
}

/// The texts of the decoder that `header` names.
template <std::size_t N>
constexpr Table DecodedBy(const char* header, const Row (&rows)[N])
{
    return {TableKind::Decoder, header, 0, rows, N};
}

/// A decoder that needs no texts.
constexpr Table DecodedBy(const char* header)
{
    return {TableKind::Decoder, header, 0, nullptr, 0};
}

/// A field of the formatted area: the offset is the standard's, from the structure's first byte.
struct Field {
    unsigned char Offset;
    const char* Name;
    int Width; ///< bytes, or StringReference
    FieldInterpretation Interpretation;
    Revision From;
    Table Values = {};
};

/// Whether the rows rise by value. A value may stand twice, for different revisions.
constexpr bool RowsRise(const Table& table)
{
    for (std::size_t i = 1; i < table.RowCount; ++i) {
        const Row& before = table.Rows[i - 1];
        const Row& row = table.Rows[i];
        if (row.Value < before.Value || (row.Value == before.Value && row.From <= before.To))
            return false;
    }
    return true;
}

/// Whether each field begins where the one before it ends, the first right behind the structure's header, and
/// has its rows in order: a reader moves over the structure by the widths alone, and looks rows up by
/// halving.
template <std::size_t N>
constexpr bool IsWellFormed(const Field (&fields)[N])
{
    int offset = 4;
    for (const Field& field : fields) {
        if (field.Offset != offset || !RowsRise(field.Values))
            return false;
        offset += field.Width == StringReference ? 1 : field.Width;
    }
    return true;
}

/// Whether a type's structures each get a node of their own, or share the node of the type.
enum class Instances : bool { Shared = false, Indexed = true };

struct Type {
    template <std::size_t N>
    constexpr Type(unsigned char number, Instances instances, Revision from, const Field (&fields)[N])
        : Number(number), Indexed(instances == Instances::Indexed), From(from), Fields(fields), FieldCount(N)
    {
    }

    unsigned char Number;
    bool Indexed;
    Revision From;
    const Field* Fields;
    std::size_t FieldCount;
};

} // namespace Protocol::SMBIOS::Catalogue
