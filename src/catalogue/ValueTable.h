// The texts of one field, as one revision has them: a look at the catalogue's constants.

#pragma once

#include "catalogue/Definition.h"

#include <algorithm>
#include <string_view>

namespace Protocol::SMBIOS {

class ValueTable {
public:
    /// `width`: of the values, in bytes.
    ValueTable(const Catalogue::Table& table, Catalogue::Revision revision, int width = 1)
        : Data(&table), Revision(revision), Width(width)
    {
    }

    Catalogue::TableKind Kind() const { return Data->Kind; }

    /// The text of a value; empty where no row has it.
    std::string_view Text(unsigned long long value) const
    {
        const std::string_view text = Text(Data->Rows, Data->RowCount, value);
        const bool knowsLower = text.data() == nullptr && Revision == Catalogue::Newest;
        return knowsLower ? Text(Data->LowerRows, Data->LowerRowCount, value) : text;
    }

    /// The text at a key of a decoder's table.
    std::string_view Text(int key) const { return Text(static_cast<unsigned long long>(key)); }

    /// A value without a row reads as its number in so many hexadecimal digits; 0: as an empty text.
    int DigitsWithoutRow() const { return Revision == Catalogue::Newest ? 2 * Width : 0; }

    /// Calls `use` with each row that the revision has, by rising value.
    template <typename Use>
    void ForEachRow(Use use) const
    {
        std::for_each(Data->Rows, Data->Rows + Data->RowCount, [&](const Catalogue::Row& row) {
            if (row.Has(Revision))
                use(row);
        });
    }

private:
    std::string_view Text(const Catalogue::Row* rows, std::size_t count, unsigned long long value) const
    {
        const Catalogue::Row* const end = rows + count;
        const Catalogue::Row* row =
            std::lower_bound(rows, end, value, [](const Catalogue::Row& each, unsigned long long wanted) {
                return each.Value < wanted;
            });
        while (row != end && row->Value == value && !row->Has(Revision))
            ++row;
        return row != end && row->Value == value ? std::string_view(row->Text) : std::string_view();
    }

    const Catalogue::Table* Data;
    Catalogue::Revision Revision;
    int Width;
};

} // namespace Protocol::SMBIOS
