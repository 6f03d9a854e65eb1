// The form in which the catalogue's data is written: a Type is one structure type of the standard, a Field
// one row of its table, a Row one text of a field's value table. Sections are what the newest catalogue alone
// reads: records that repeat, strings, and fields that no catalogue by version has although their revision
// would let it. All of it is constant data; Catalogue.cpp makes the tables of a revision from it.

#pragma once

#include "SMBIOSProtocol/SMBTable.h"
#include "catalogue/Unit.h"

#include <cstddef>
#include <string_view>

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
    V3_8,
    V3_9
};

/// The revision whose catalogue reads tables of any version, with sections.
constexpr Revision Newest = V3_9;
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
/// bit table, and the row's key in a decoder's table; as a special value it is the number in the field's
/// bytes, without a sign, and AllOnes where they are more than 8 and all FFh.
struct Row {
    unsigned long long Value;
    const char* Text;
    Revision From = V2_3;
    Revision To = Newest;

    constexpr bool Has(Revision revision) const { return From <= revision && revision <= To; }
};

constexpr unsigned long long AllOnes = ~0ULL;

/// The field that a special value refers to: of "see `X`", X. Empty: it refers to none.
constexpr std::string_view SeenField(const Row& special)
{
    constexpr std::string_view See = "see `";
    const std::string_view text = special.Text;
    return text.substr(0, See.size()) == See ? text.substr(See.size(), text.size() - See.size() - 1)
                                             : std::string_view();
}

/// How a value becomes text.
enum class TableKind : unsigned char {
    None, ///< a number, a string or bytes, which stand for themselves
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

/// What a value says: its texts, if it has any; what it counts where it is a number, that of a decoder in the
/// tree; and the values that say something else.
struct Table {
    TableKind Kind = TableKind::None;
    unsigned short RowCount = 0;
    unsigned short LowerRowCount = 0;
    unsigned short PartCount = 0;
    const Row* Rows = nullptr; ///< ascending by value; one row a value and revision
    const Row* LowerRows =
        nullptr;                 ///< rows of another table, all below Rows, which the newest revision has too
    const Part* Parts = nullptr; ///< of a packed value

    const Row* Specials = nullptr; ///< ascending; "see `X`" names the field that has the value instead
    unsigned short SpecialCount = 0;
    Unit CountsIn = Unit::None;
    unsigned char TargetCount = 0; ///< of a handle; 0: it leads to structures of any type
    unsigned char Targets[4] = {}; ///< the types of structures that it leads to

    /// The same value, with its unit.
    constexpr Table In(Unit unit) const
    {
        Table table = *this;
        table.CountsIn = unit;
        return table;
    }

    /// The same value, but for some that say what `specials` have.
    template <std::size_t N>
    constexpr Table Except(const Row (&specials)[N]) const
    {
        Table table = *this;
        table.Specials = specials;
        table.SpecialCount = N;
        return table;
    }
};

/// A number, or the number of a string, to say more of.
constexpr Table Plain;

/// A number with a unit.
constexpr Table In(Unit unit)
{
    return Plain.In(unit);
}

/// A handle of a structure of one of the types, or of any.
template <typename... Types>
constexpr Table HandleOf(Types... types)
{
    Table table = In(Unit::Handle);
    ((table.Targets[table.TargetCount++] = static_cast<unsigned char>(types)), ...);
    return table;
}

template <std::size_t N>
constexpr Table WithRows(TableKind kind, const Row (&rows)[N])
{
    Table table;
    table.Kind = kind;
    table.Rows = rows;
    table.RowCount = N;
    return table;
}

/// One text a value.
template <std::size_t N>
constexpr Table Enumeration(const Row (&rows)[N])
{
    return WithRows(TableKind::Enumeration, rows);
}

/// The same; the newest revision knows `lower` too, whose values are all below those of `rows`.
template <std::size_t N, std::size_t M>
constexpr Table Enumeration(const Row (&rows)[N], const Row (&lower)[M])
{
    Table table = Enumeration(rows);
    table.LowerRows = lower;
    table.LowerRowCount = M;
    return table;
}

/// One text a value of the low seven bits; bit 7 means something else.
template <std::size_t N>
constexpr Table MaskedEnumeration(const Row (&rows)[N])
{
    return WithRows(TableKind::MaskedEnumeration, rows);
}

/// One text a reported bit.
template <std::size_t N>
constexpr Table Bits(const Row (&rows)[N])
{
    return WithRows(TableKind::Bits, rows);
}

/// A decoder that needs no texts.
constexpr Table DecodedBy(TableKind decoder)
{
    Table table;
    table.Kind = decoder;
    return table;
}

/// The texts of a decoder.
template <std::size_t N>
constexpr Table DecodedBy(TableKind decoder, const Row (&rows)[N])
{
    return WithRows(decoder, rows);
}

/// A value in some bits of a packed one.
struct Part {
    const char* Name;
    unsigned char LowBit;
    unsigned char HighBit; ///< the last bit that belongs to it
    Table Values = {};     ///< an enumeration, or a number
};

/// Several values in the bits of one, from the lowest up. The newest revision alone has such fields.
template <std::size_t N>
constexpr Table Packed(const Part (&parts)[N])
{
    Table table;
    table.Kind = TableKind::Packed;
    table.Parts = parts;
    table.PartCount = N;
    return table;
}

/// A field of the formatted area: the offset is the standard's, from the structure's first byte, or as its
/// section says.
struct Field {
    unsigned char Offset;
    const char* Name;
    int Width; ///< bytes, StringReference, RestOfRecord or AsSaidAt()
    FieldInterpretation Interpretation;
    Revision From; ///< that brought it; V2_3, or an older one where catalogues by version read the field
    const char* Meaning; ///< what it tells; unit, special values and a handle's types stand in Values
    Table Values = {};
    int CountOffset = 0; ///< of a field within the first of some records: of their count; where that is 0,
                         ///< the newest revision skips the field. 0: it never does

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

    /// Version 0.0 means that the table's version is not known: such a table is taken for a new one.
    constexpr bool IsOlderThan(const TableVersion& other) const
    {
        const bool isKnown = Major != 0 || Minor != 0;
        return isKnown && (Major != other.Major ? Major < other.Major : Minor < other.Minor);
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

/// Whether a type's structures each get a node of their own, or share the node of the type.
enum class Instances : bool { Shared = false, Indexed = true };

struct Type {
    template <std::size_t N>
    constexpr Type(unsigned char number, Instances instances, Revision from, const Field (&fields)[N])
        : Number(number), Indexed(instances == Instances::Indexed), From(from), Fields(fields), FieldCount(N),
          First(FieldsOf(fields))
    {
    }

    /// `sections` stand behind the fields.
    template <std::size_t N, std::size_t M>
    constexpr Type(unsigned char number, Instances instances, Revision from, const Field (&fields)[N],
                   const Section (&sections)[M])
        : Number(number), Indexed(instances == Instances::Indexed), From(from), Fields(fields), FieldCount(N),
          First(FieldsOf(fields)), Sections(sections), SectionCount(M)
    {
    }

    /// The same; tables older than `since` are read with `older` instead.
    template <std::size_t N, std::size_t M>
    constexpr Type(unsigned char number, Instances instances, Revision from, const Field (&fields)[N],
                   const Section (&sections)[M], TableVersion since, const Type& older)
        : Type(number, instances, from, fields, sections)
    {
        Since = since;
        Older = &older;
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
    Revision From;       ///< the first that reads the type by version; Later: none does
    const Field* Fields; ///< by version, those whose revision it has
    std::size_t FieldCount;
    Section First; ///< of the newest revision: the fields
    const Section* Sections = nullptr;
    std::size_t SectionCount = 0;
    TableVersion Since; ///< of a type with an older layout: the version of the tables that have this one
    const Type* Older = nullptr;
};

} // namespace Protocol::SMBIOS::Catalogue
