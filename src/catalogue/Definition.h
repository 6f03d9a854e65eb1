// The form in which the catalogue's data is written: a Type is one structure type of the standard, a Field
// one row of its table, a Row one text of a field's value table. Sections are what the newest catalogue alone
// reads: records that repeat, strings, and fields that no catalogue by version has although their revision
// would let it. All of it is constant data; Catalogue.cpp makes the tables of a revision from it.

#pragma once

#include "SMBIOSProtocol/SMBTable.h"

#include <cstddef>

namespace Protocol::SMBIOS {

/// How a field's bytes are printed.
enum class FieldInterpretation {
    Decimal = 1, ///< little-endian number in decimal; eight bytes with a sign
    String = 2,  ///< string number, resolved to its string
    Hex = 3,     ///< bytes in hexadecimal behind "0X"
    HexBare = 4, ///< bytes in hexadecimal

    // of the newest catalogue alone
    Signed = 5,   ///< little-endian two's complement in decimal
    Unsigned = 6, ///< little-endian number in decimal, eight bytes without a sign
};

} // namespace Protocol::SMBIOS

namespace Protocol::SMBIOS::Catalogue {

/// Of the standard. Catalogues by version are those of V2_3 to V2_7.
enum Revision : unsigned char {
    V2_0,
    V2_1,
    V2_2,
    V2_3,
    V2_4,
    V2_5,
    V2_6,
    V2_7,
    V2_8,
    V3_0,
    V3_1,
    V3_2,
    V3_3,
    V3_4,
    V3_5,
    V3_6,
    V3_7,
    V3_8
};

/// The revision whose catalogue reads tables of any version, with sections.
constexpr Revision Newest = V3_8;
/// The mark of the rows and types that the newest catalogue alone reads, whichever revision brought them.
constexpr Revision Later = V2_8;

/// Width of a field that holds a string number.
constexpr int StringReference = 17;
/// Width of a field that takes what is left of its structure or record.
constexpr int RestOfRecord = 0x100;
/// Width of a field that takes as many bytes as the byte at `offset`, of the same structure or record, says.
constexpr int AsSaidAt(int offset)
{
    return RestOfRecord + 1 + offset;
}

constexpr FieldInterpretation Decimal = FieldInterpretation::Decimal;
constexpr FieldInterpretation String = FieldInterpretation::String;
constexpr FieldInterpretation Hex = FieldInterpretation::Hex;
constexpr FieldInterpretation HexBare = FieldInterpretation::HexBare;
constexpr FieldInterpretation Signed = FieldInterpretation::Signed;
constexpr FieldInterpretation Unsigned = FieldInterpretation::Unsigned;

/// A text and the revisions that have it. Value is the field's value in an enumeration, the bit's number in a
/// bit table, and the row's key in a decoder's table.
struct Row {
    int Value;
    const char* Text;
    Revision From = V2_3;
    Revision To = Newest;

    constexpr bool Has(Revision revision) const { return From <= revision && revision <= To; }
};

/// How the number in a field becomes words.
enum class TableKind : unsigned char {
    None, ///< it does not
    Enumeration,
    MaskedEnumeration, ///< of the low seven bits
    Bits,              ///< a leaf for each reported bit
    Packed,            ///< several values in the bits of one

    // what a decoder of its own reads
    BIOSRomSize,
    Status,
    VoltageCapability,
    CacheSize,
    CacheConfiguration,
    Flags,
    HardwareSecuritySettings,
    IPMISpecRev,
    UUID,
};

constexpr bool HasDecoder(TableKind kind)
{
    return kind >= TableKind::BIOSRomSize;
}

struct Part;

struct Table {
    TableKind Kind = TableKind::None;
    int BitCount = 0;          ///< length of a bit table's header
    const Row* Rows = nullptr; ///< ascending by value; one row a value and revision
    std::size_t RowCount = 0;
    const Row* LowerRows = nullptr; ///< rows of another table that the newest revision has too, below Rows
    std::size_t LowerRowCount = 0;
    const Part* Parts = nullptr; ///< of a packed value
    std::size_t PartCount = 0;
};

/// One text a value.
template <std::size_t N>
constexpr Table Enumeration(const Row (&rows)[N])
{
    return {TableKind::Enumeration, 0, rows, N};
}

/// The same; the newest revision knows `lower` too, whose values are all below those of `rows`.
template <std::size_t N, std::size_t M>
constexpr Table Enumeration(const Row (&rows)[N], const Row (&lower)[M])
{
    return {TableKind::Enumeration, 0, rows, N, lower, M};
}

/// One text a value of the low seven bits; bit 7 means something else.
template <std::size_t N>
constexpr Table MaskedEnumeration(const Row (&rows)[N])
{
    return {TableKind::MaskedEnumeration, 0, rows, N};
}

/// One text a reported bit, among the lowest `bitCount`.
template <std::size_t N>
constexpr Table Bits(int bitCount, const Row (&rows)[N])
{
    return {TableKind::Bits, bitCount, rows, N};
}

/// The texts of a decoder.
template <std::size_t N>
constexpr Table DecodedBy(TableKind decoder, const Row (&rows)[N])
{
    return {decoder, 0, rows, N};
}

/// A decoder that needs no texts.
constexpr Table DecodedBy(TableKind decoder)
{
    return {decoder};
}

/// A value in some bits of a packed one.
struct Part {
    const char* Name;
    unsigned char LowBit;
    unsigned char HighBit; ///< the last bit that belongs to it
    Table Values = {};     ///< an enumeration; none: a number
};

/// Several values in the bits of one, from the lowest up. The newest revision alone has such fields.
template <std::size_t N>
constexpr Table Packed(const Part (&parts)[N])
{
    return {TableKind::Packed, 0, nullptr, 0, nullptr, 0, parts, N};
}

/// A field of the formatted area: the offset is the standard's, from the structure's first byte, or as its
/// section says.
struct Field {
    unsigned char Offset;
    const char* Name;
    int Width; ///< bytes, StringReference, RestOfRecord or AsSaidAt()
    FieldInterpretation Interpretation;
    Revision From; ///< that brought it; V2_3, or an older one where catalogues by version read the field
    const char* Meaning;
    Table Values = {};

    constexpr bool HasFixedWidth() const { return Width < RestOfRecord; }
    constexpr int Size() const { return Width == StringReference ? 1 : Width; } ///< bytes, of a fixed width
    constexpr int OffsetOfWidth() const { return Width - AsSaidAt(0); }         ///< of a width AsSaidAt()
};

/// Where a group's count stands: an offset, counted as those of the section before.
constexpr int CountAt(int offset)
{
    return offset;
}
/// A count: as many records as the structure has room for.
constexpr int AsManyAsFit = -1;

/// How long the records of a group are.
struct RecordLength {
    enum class Source : unsigned char { Fixed, Structure, Record };

    Source From;
    int Value;       ///< bytes, or the offset of the byte that says how many
    int Plus = 0;    ///< bytes that it does not count
    int Minimum = 1; ///< a shorter record ends the group
};

constexpr RecordLength BytesEach(int bytes)
{
    return {RecordLength::Source::Fixed, bytes};
}
/// All as long as the byte at `offset` of the structure says.
constexpr RecordLength EachAsSaidAt(int offset)
{
    return {RecordLength::Source::Structure, offset};
}
/// Each as long as its own byte at `offset` says, and `plus` more.
constexpr RecordLength AsEachSaysAt(int offset, int plus, int minimum)
{
    return {RecordLength::Source::Record, offset, plus, minimum};
}

/// Start of a section: where the one before it ends. A group ends where all the records that its count says
/// would end.
constexpr int Behind = -1;

/// A version of a table, for the layouts that depend on it.
struct TableVersion {
    int Major = 0;
    int Minor = 0;

    constexpr bool operator<(const TableVersion& other) const
    {
        return Major != other.Major ? Major < other.Major : Minor < other.Minor;
    }
};

/// What the newest revision reads of a structure, one section behind the other.
struct Section {
    enum class Content : unsigned char { Fields, Group, Strings };

    Content Holds;
    const char* Name;              ///< of the group's records, or of the strings
    int Start;                     ///< from the structure's first byte, or Behind
    const Field* Fields = nullptr; ///< offsets count from Start, in a group from the start of the record
    std::size_t FieldCount = 0;
    int Count = 0; ///< of a group: CountAt or AsManyAsFit
    RecordLength Length = {RecordLength::Source::Fixed, 0};
};

/// Fields at their offsets from the structure's first byte.
template <std::size_t N>
constexpr Section FieldsOf(const Field (&fields)[N])
{
    return {Section::Content::Fields, "", 0, fields, N};
}

/// Fields at offsets from where the section before ends.
template <std::size_t N>
constexpr Section FieldsBehind(const Field (&fields)[N])
{
    return {Section::Content::Fields, "", Behind, fields, N};
}

/// Records that repeat, each with these fields.
template <std::size_t N>
constexpr Section Group(const char* name, int start, int count, RecordLength length, const Field (&fields)[N])
{
    return {Section::Content::Group, name, start, fields, N, count, length};
}

/// Each string of the structure, in order.
constexpr Section StringList(const char* name)
{
    return {Section::Content::Strings, name, 0};
}

/// Whether the rows rise by value. A value may stand twice, for different revisions.
constexpr bool RowsRise(const Table& table)
{
    for (std::size_t i = 1; i < table.RowCount; ++i) {
        const Row& before = table.Rows[i - 1];
        const Row& row = table.Rows[i];
        if (row.Value < before.Value || (row.Value == before.Value && row.From <= before.To))
            return false;
    }
    return table.LowerRowCount == 0 || table.LowerRows[table.LowerRowCount - 1].Value < table.Rows[0].Value;
}

/// Whether the parts lie one above the other within `bits` bits, each with rows that fit into it.
constexpr bool PartsFit(const Table& table, int bits)
{
    int free = 0;
    for (std::size_t i = 0; i < table.PartCount; ++i) {
        const Part& part = table.Parts[i];
        if (part.LowBit < free || part.HighBit < part.LowBit || part.HighBit >= bits ||
            !RowsRise(part.Values))
            return false;
        const Table& values = part.Values;
        if (values.RowCount != 0 &&
            values.Rows[values.RowCount - 1].Value >> (part.HighBit - part.LowBit + 1) != 0)
            return false;
        free = part.HighBit + 1;
    }
    return true;
}

/// Whether each field begins where the one before it ends, the first at `offset`, and has its rows in order:
/// by version a reader moves over the structure by the widths alone, and rows are looked up by halving. What
/// is behind a field whose width is not fixed has no offset.
constexpr bool FieldsFollow(const Field* fields, std::size_t count, int offset)
{
    for (std::size_t i = 0; i < count; ++i) {
        const Field& field = fields[i];
        if (field.Offset != offset || !RowsRise(field.Values))
            return false;
        if (!field.HasFixedWidth())
            return i + 1 == count;
        if (!PartsFit(field.Values, 8 * field.Size()))
            return false;
        offset += field.Size();
    }
    return true;
}

/// The fields of a structure, the first right behind its header.
template <std::size_t N>
constexpr bool IsWellFormed(const Field (&fields)[N])
{
    return FieldsFollow(fields, N, 4);
}

/// A section has its fields in order too, at any offset from the structure's first byte, else from 0 on;
/// those of records of fixed length fill the record.
constexpr bool IsWellFormed(const Section& section)
{
    if (section.Holds == Section::Content::Strings)
        return true;
    const bool isAtOffsets = section.Holds == Section::Content::Fields && section.Start != Behind;
    const Field& last = section.Fields[section.FieldCount - 1];
    const bool fillsRecord = section.Holds != Section::Content::Group ||
                             section.Length.From != RecordLength::Source::Fixed ||
                             last.Offset + last.Size() == section.Length.Value;
    return fillsRecord &&
           FieldsFollow(section.Fields, section.FieldCount, isAtOffsets ? section.Fields[0].Offset : 0);
}

template <std::size_t N>
constexpr bool IsWellFormed(const Section (&sections)[N])
{
    for (std::size_t i = 0; i < N; ++i) {
        if (!IsWellFormed(sections[i]))
            return false;
    }
    return true;
}

/// Whether a type's structures each get a node of their own, or share the node of the type.
enum class Instances : bool { Shared = false, Indexed = true };

struct Type {
    template <std::size_t N>
    constexpr Type(unsigned char number, Instances instances, Revision from, const Field (&fields)[N])
        : Number(number), Indexed(instances == Instances::Indexed), From(from), Fields(fields), FieldCount(N),
          First(FieldsOf(fields))
    {
    }

    /// `sections` stand behind the fields, in tables of version `since` and later.
    template <std::size_t N, std::size_t M>
    constexpr Type(unsigned char number, Instances instances, Revision from, const Field (&fields)[N],
                   const Section (&sections)[M], TableVersion since = {})
        : Number(number), Indexed(instances == Instances::Indexed), From(from), Fields(fields), FieldCount(N),
          First(FieldsOf(fields)), Sections(sections), SectionCount(M), SectionsSince(since)
    {
    }

    /// How many of the fields a revision has. They are the first ones: a revision adds at the end.
    constexpr std::size_t FieldCountIn(Revision revision) const
    {
        std::size_t count = 0;
        while (count < FieldCount && Fields[count].From <= revision)
            ++count;
        return count;
    }

    unsigned char Number;
    bool Indexed;
    Revision From;
    const Field* Fields;
    std::size_t FieldCount;
    Section First; ///< of the newest revision: the fields
    const Section* Sections = nullptr;
    std::size_t SectionCount = 0;
    TableVersion SectionsSince;
};

} // namespace Protocol::SMBIOS::Catalogue
