// The built catalogues: how much each revision has. What it is, the check of docs/paths.md compares.

#include "catalogue/Catalogue.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

using namespace Protocol::SMBIOS::Catalogue;

namespace {

TEST(Catalogue, HasSoManyFieldsTablesAndRows)
{
    // Fields, tables and rows of tables in each revision; a type that a revision lacks has none of them.
    using Counts = std::array<std::size_t, 3>;
    const struct {
        unsigned char Type;
        bool Indexed;
        std::array<Counts, 5> ByRevision;
    } expected[] = {
        {0, false, {{{8, 4, 39}, {12, 4, 39}, {12, 4, 39}, {12, 4, 39}, {12, 4, 41}}}},
        {1, false, {{{6, 2, 9}, {8, 2, 9}, {8, 2, 9}, {8, 2, 9}, {8, 2, 9}}}},
        {2, true, {{{11, 2, 19}, {11, 2, 19}, {11, 2, 19}, {11, 2, 19}, {11, 2, 19}}}},
        {3, false, {{{15, 5, 53}, {15, 5, 53}, {15, 5, 55}, {15, 5, 55}, {15, 5, 57}}}},
        {4, true, {{{18, 5, 138}, {18, 5, 140}, {22, 6, 145}, {23, 7, 160}, {23, 7, 255}}}},
        {7, true, {{{10, 8, 56}, {10, 8, 56}, {10, 8, 56}, {10, 8, 56}, {10, 8, 62}}}},
        {8, true, {{{5, 3, 119}, {5, 3, 119}, {5, 3, 119}, {5, 3, 119}, {5, 3, 119}}}},
        {9, true, {{{8, 6, 53}, {8, 6, 61}, {8, 6, 61}, {11, 6, 66}, {11, 6, 77}}}},
        {10, true, {{{2, 1, 8}, {2, 1, 8}, {2, 1, 11}, {2, 1, 11}, {2, 1, 11}}}},
        {11, false, {{{1, 0, 0}, {1, 0, 0}, {1, 0, 0}, {1, 0, 0}, {1, 0, 0}}}},
        {13, false, {{{4, 1, 2}, {4, 1, 2}, {4, 1, 2}, {4, 1, 2}, {4, 1, 2}}}},
        {16, true, {{{6, 3, 31}, {6, 3, 31}, {6, 3, 31}, {6, 3, 31}, {6, 3, 31}}}},
        {17, true, {{{16, 3, 44}, {16, 3, 45}, {16, 3, 52}, {17, 3, 49}, {18, 3, 57}}}},
        {18, true, {{{7, 3, 26}, {7, 3, 26}, {7, 3, 26}, {7, 3, 26}, {7, 3, 26}}}},
        {19, true, {{{4, 0, 0}, {4, 0, 0}, {4, 0, 0}, {4, 0, 0}, {4, 0, 0}}}},
        {24, false, {{{1, 1, 4}, {1, 1, 4}, {1, 1, 4}, {1, 1, 4}, {1, 1, 4}}}},
        {32, false, {{{2, 0, 0}, {2, 0, 0}, {2, 0, 0}, {2, 0, 0}, {2, 0, 0}}}},
        {38, false, {{{5, 2, 4}, {5, 2, 4}, {5, 2, 4}, {5, 2, 4}, {5, 2, 4}}}},
        {132, true, {{{}, {}, {}, {}, {6, 0, 0}}}},
        {133, false, {{{}, {}, {}, {}, {2, 0, 0}}}},
    };
    for (const Revision revision : {V2_3, V2_4, V2_5, V2_6, V2_7}) {
        const auto tables = Build(revision);
        EXPECT_EQ(tables.size(), revision == V2_7 ? 20U : 18U);
        for (const auto& each : expected) {
            SCOPED_TRACE("type " + std::to_string(each.Type) + " in 2." + std::to_string(3 + revision));
            Counts counts = {};
            const auto table = tables.find(each.Type);
            if (table != tables.end()) {
                counts = {table->second.Fields.size(), table->second.ValueTables.size(), 0};
                for (const auto& [name, values] : table->second.ValueTables) {
                    counts[2] += values.Rows().size();
                    // The decoder takes a row for each reported bit without looking.
                    const std::string& bits = values.Header();
                    EXPECT_TRUE(bits.find_first_not_of("01") != std::string::npos ||
                                std::count(bits.begin(), bits.end(), '1') ==
                                    static_cast<std::ptrdiff_t>(values.Rows().size()))
                        << name;
                }
                EXPECT_EQ(table->second.Indexed, each.Indexed);
            }
            EXPECT_EQ(counts, each.ByRevision[revision]);
        }
    }
}

} // namespace
