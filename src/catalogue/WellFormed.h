// The rules that the compiler holds the catalogue's data against.

#pragma once

#include "catalogue/Definition.h"
#include "structures/Walk.h"

#include <string_view>

namespace Protocol::SMBIOS::Catalogue {

/// Whether the rows rise by value. A value may stand twice, for different revisions.
constexpr bool RowsRise(const Row* rows, std::size_t count)
{
    for (std::size_t i = 1; i < count; ++i) {
        const Row& before = rows[i - 1];
        const Row& row = rows[i];
        if (row.Value < before.Value || (row.Value == before.Value && row.From <= before.To))
            return false;
    }
    return true;
}

/// Whether a table's rows and special values rise, and lower rows lie below the others.
constexpr bool RowsRise(const Table& table)
{
    return RowsRise(table.Rows, table.RowCount) && RowsRise(table.Specials, table.SpecialCount) &&
           (table.LowerRowCount == 0 || table.LowerRows[table.LowerRowCount - 1].Value < table.Rows[0].Value);
}

/// Whether no row's value needs more than `bits` bits.
constexpr bool RowsFit(const Row* rows, std::size_t count, int bits)
{
    return bits >= 64 || count == 0 || rows[count - 1].Value >> bits == 0;
}

/// Whether the parts lie one above the other within `bits` bits, each with rows that fit into it.
constexpr bool PartsFit(const Table& table, int bits)
{
    int free = 0;
    for (std::size_t i = 0; i < table.PartCount; ++i) {
        const Part& part = table.Parts[i];
        const int width = part.HighBit - part.LowBit + 1;
        if (part.LowBit < free || width < 1 || width > 63 || part.HighBit >= bits || bits > 64 ||
            !RowsRise(part.Values) || !RowsFit(part.Values.Rows, part.Values.RowCount, width) ||
            !RowsFit(part.Values.Specials, part.Values.SpecialCount, width))
            return false;
        free = part.HighBit + 1;
    }
    return true;
}

/// Whether each field begins where the one before it ends, the first at `offset`, is not older than it, and
/// has its rows in order: by version a reader moves over the structure by the widths alone, as far as its
/// revision goes, and rows are looked up by halving. What is behind a field whose width is not fixed has no
/// offset.
constexpr bool FieldsFollow(const Field* fields, std::size_t count, int offset)
{
    for (std::size_t i = 0; i < count; ++i) {
        const Field& field = fields[i];
        if (field.Offset != offset || !RowsRise(field.Values) || (i > 0 && field.From < fields[i - 1].From))
            return false;
        if (!field.HasFixedWidth())
            return i + 1 == count;
        const int bits = 8 * field.Size();
        if (!PartsFit(field.Values, bits) || !RowsFit(field.Values.Specials, field.Values.SpecialCount, bits))
            return false;
        offset += field.Size();
    }
    return true;
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

/// Whether `holds(name, values)` is true of each field of the type, and of each part of one.
template <typename Condition>
constexpr bool OfAllValues(const Type& type, Condition holds)
{
    for (std::size_t s = 0; s <= type.SectionCount; ++s) {
        const Section& section = s == 0 ? type.First : type.Sections[s - 1];
        for (std::size_t i = 0; i < section.FieldCount; ++i) {
            const Field& field = section.Fields[i];
            if (!holds(std::string_view(field.Name), field.Values))
                return false;
            for (std::size_t k = 0; k < field.Values.PartCount; ++k) {
                if (!holds(std::string_view(field.Values.Parts[k].Name), field.Values.Parts[k].Values))
                    return false;
            }
        }
    }
    return true;
}

/// Whether fields, and parts, of one name have the same texts: callers tell them apart by name alone.
constexpr bool NamesAgree(const Type& type)
{
    return OfAllValues(type, [&](std::string_view name, const Table& values) {
        return OfAllValues(type, [&](std::string_view otherName, const Table& others) {
            return name != otherName ||
                   (values.Kind == others.Kind && values.Rows == others.Rows && values.Parts == others.Parts);
        });
    });
}

/// Whether each field that a special value refers to is one of the type.
constexpr bool SeenFieldsExist(const Type& type)
{
    return OfAllValues(type, [&](std::string_view, const Table& values) {
        for (std::size_t i = 0; i < values.SpecialCount; ++i) {
            const std::string_view seen = SeenField(values.Specials[i]);
            if (!seen.empty() &&
                OfAllValues(type, [&](std::string_view name, const Table&) { return name != seen; }))
                return false;
        }
        return true;
    });
}

constexpr bool IsWellFormed(const Type& type)
{
    for (std::size_t i = 0; i < type.SectionCount; ++i) {
        if (!IsWellFormed(type.Sections[i]))
            return false;
    }
    return FieldsFollow(type.Fields, type.FieldCount, static_cast<int>(HeaderSize)) && NamesAgree(type) &&
           SeenFieldsExist(type);
}

} // namespace Protocol::SMBIOS::Catalogue
