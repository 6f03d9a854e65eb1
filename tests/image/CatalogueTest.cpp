// The built catalogues: what each revision has, and what it must not have yet.

#include "catalogue/Catalogue.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <set>

using namespace Protocol::SMBIOS;
using namespace Protocol::SMBIOS::Catalogue;

namespace {

constexpr Revision Revisions[] = {V2_3, V2_4, V2_5, V2_6, V2_7};
using Tables = std::unordered_map<unsigned char, SMBTable>;

const Tables& Of(Revision revision)
{
    static const std::array<Tables, 5> all = {Build(V2_3), Build(V2_4), Build(V2_5), Build(V2_6),
                                              Build(V2_7)};
    return all[revision];
}

std::string Name(Revision revision)
{
    return "2." + std::to_string(3 + revision);
}

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
    for (const Revision revision : Revisions) {
        EXPECT_EQ(Of(revision).size(), revision == V2_7 ? 20U : 18U);
        for (const auto& each : expected) {
            Counts counts = {};
            const auto table = Of(revision).find(each.Type);
            if (table != Of(revision).end()) {
                counts = {table->second.Fields.size(), table->second.ValueTables.size(), 0};
                for (const auto& values : table->second.ValueTables)
                    counts[2] += values.second.Rows().size();
                EXPECT_EQ(table->second.Indexed, each.Indexed) << static_cast<int>(each.Type);
            }
            EXPECT_EQ(counts, each.ByRevision[revision])
                << "type " << static_cast<int>(each.Type) << " in " << Name(revision);
        }
    }
}

// All that the decoders rely on without looking.
TEST(Catalogue, IsWellFormed)
{
    const std::set<std::pair<int, FieldInterpretation>> pairs = {
        {1, Decimal}, {2, Decimal}, {4, Decimal}, {8, Decimal}, {17, String},
        {6, Hex},     {8, Hex},     {10, Hex},    {15, Hex},    {16, HexBare},
    };
    for (const Revision revision : Revisions) {
        for (const auto& [type, table] : Of(revision)) {
            SCOPED_TRACE("type " + std::to_string(type) + " in " + Name(revision));
            std::set<std::string_view> names;
            for (const SMBField& field : table.Fields) {
                EXPECT_EQ(pairs.count({field.Width, field.Interpretation}), 1U) << field.Name;
                EXPECT_TRUE(names.insert(field.Name).second) << field.Name << " twice";
            }
            for (const auto& [name, values] : table.ValueTables) {
                SCOPED_TRACE(name);
                EXPECT_EQ(names.count(name), 1U);
                const std::string& header = values.Header();
                if (header.find_first_not_of("01") == std::string::npos) {
                    EXPECT_EQ(static_cast<std::size_t>(std::count(header.begin(), header.end(), '1')),
                              values.Rows().size());
                    for (std::size_t i = 0; i < values.Rows().size(); ++i)
                        EXPECT_EQ(values.Rows()[i].Key, static_cast<int>(i) + 1);
                }
                int last = 0;
                for (const ValueTable::Row& row : values.Rows()) {
                    EXPECT_GT(row.Key, last) << row.Text;
                    EXPECT_FALSE(row.Text.empty());
                    last = row.Key;
                }
            }
        }
    }
}

bool HasField(const SMBTable& table, std::string_view name)
{
    return std::any_of(table.Fields.begin(), table.Fields.end(),
                       [&](const SMBField& field) { return field.Name == name; });
}

TEST(Catalogue, FieldsBeginWithTheirRevision)
{
    const struct {
        unsigned char Type;
        const char* Field;
        Revision From;
    } expected[] = {
        {0, "SystemBiosMajorRelease", V2_4},
        {0, "ECFirmwareMinorRelease", V2_4},
        {1, "SKUNumber", V2_4},
        {1, "Family", V2_4},
        {4, "CoreCount", V2_5},
        {4, "Characteristics", V2_5},
        {4, "ProcessorFamily2", V2_6},
        {9, "SegmentGroupNumber", V2_6},
        {9, "DeviceNumber", V2_6},
        {17, "Attributes", V2_6},
        {17, "ExtendedSize", V2_7},
    };
    for (const auto& each : expected)
        for (const Revision revision : Revisions)
            EXPECT_EQ(HasField(Of(revision).at(each.Type), each.Field), revision >= each.From)
                << each.Field << " in " << Name(revision);
}

// A field's value reads so in these revisions, and in no other.
TEST(Catalogue, TextsHoldForTheirRevisionsAlone)
{
    const struct {
        unsigned char Type;
        const char* Field;
        int Value;
        const char* Text;
        Revision From = V2_3, To = V2_7;
    } expected[] = {
        {3, "ChassisType", 0x1A, "CompactPCI", V2_5},
        {3, "ChassisType", 0x1C, "Blade", V2_7},
        {4, "Upgrade", 0x0F, "Socket 478"},
        {4, "Upgrade", 0x10, "Socket 754", V2_4},
        {4, "Upgrade", 0x12, "Socket 939", V2_5},
        {4, "Upgrade", 0x2C, "Socket LGA1356-3", V2_7},
        {7, "Associativity", 0x0E, "20 way Set Associative", V2_7},
        {9, "SlotType", 0xA5, "PCI Express", V2_4},
        {9, "SlotType", 0xA6, "PCI Express x1", V2_6},
        {9, "SlotType", 0xAB, ""},
        {9, "SlotType", 0xB6, "PCI Express Gen 3 x16", V2_7},
        {9, "SlotDataBusWidth", 0x0E, "32x or x32", V2_4},
        {10, "DeviceType", 0x0A, "SASController", V2_5},
        {17, "FormFactor", 0x0F, "FB-DIMM", V2_5},
        {17, "MemoryType", 0x13, "DDR2", V2_4},
        {17, "MemoryType", 0x15, "Reserved", V2_5, V2_5},
        {17, "MemoryType", 0x18, "DDR3", V2_5},
        {17, "MemoryType", 0x1E, "LPDDR4", V2_7},
        {4, "ProcessorFamily", 0x03, "8086"},
        {4, "ProcessorFamily", 0x05, "Intel386 processor", V2_3, V2_6},
        {4, "ProcessorFamily", 0x05, "Intel386(TM) processor", V2_7},
        {4, "ProcessorFamily", 0x14, "Intel(R) Celeron(R) M processor", V2_7},
        {4, "ProcessorFamily", 0xC2, "Intel(R) Core(TM) 2 Quad processor", V2_6},
        {4, "ProcessorFamily", 0xFE,
         "Indicator to obtain the processor family from the Processor Family 2 field", V2_6},
        {4, "ProcessorFamily", 0xFF, ""},
    };
    for (const auto& each : expected) {
        for (const Revision revision : Revisions) {
            const ValueTable& table = Of(revision).at(each.Type).ValueTables.at(each.Field);
            EXPECT_EQ(table.Text(each.Value + 1) == each.Text, revision >= each.From && revision <= each.To)
                << each.Field << " " << each.Value << " reads \"" << table.Text(each.Value + 1) << "\" in "
                << Name(revision);
        }
    }
    for (const Revision revision : {V2_6, V2_7})
        EXPECT_EQ(Of(revision).at(4).ValueTables.at("ProcessorFamily2").Text(0x1F4 + 1), "Video Processor");
}

TEST(Catalogue, HeadersWidenWithRevision27)
{
    const std::string characteristics = "0000" + std::string(28, '1') + std::string(32, '0');
    const struct {
        unsigned char Type;
        const char* Field;
        std::string Before, From27;
    } expected[] = {
        {0, "BIOSCharacteristics", characteristics, characteristics},
        {0, "BIOSCharacteristicsExtensionByte2", "11100000", "11111000"},
        {4, "Characteristics", "001000000000000", "001111110000000"},
        {17, "TypeDetail", "0001111111111000", "0001111111111111"},
    };
    for (const auto& each : expected) {
        EXPECT_EQ(Of(V2_6).at(each.Type).ValueTables.at(each.Field).Header(), each.Before) << each.Field;
        EXPECT_EQ(Of(V2_7).at(each.Type).ValueTables.at(each.Field).Header(), each.From27) << each.Field;
    }
}

} // namespace
