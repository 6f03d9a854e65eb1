// The compiler checks the catalogue's data with rules that data in order cannot try out: each with data that
// just keep it, and that just do not.

#include "catalogue/WellFormed.h"

#include <gtest/gtest.h>

using namespace Protocol::SMBIOS::Catalogue;

namespace {

constexpr Row Rising[] = {{1, "a"}, {2, "b"}};
constexpr Row Falling[] = {{2, "a"}, {1, "b"}};

template <std::size_t N>
bool Fit(int bits, const Part (&parts)[N])
{
    return PartsFit(Packed(parts), bits);
}

template <std::size_t N>
bool Follow(const Field (&fields)[N])
{
    return FieldsFollow(fields, N, 4);
}

TEST(CatalogueData, HasRowsThatRise)
{
    static constexpr Row Twice[] = {{1, "a"}, {1, "b"}};
    static constexpr Row Successive[] = {{1, "a", V2_3, V2_4}, {1, "b", V2_5}};
    static constexpr Row Overlapping[] = {{1, "a", V2_3, V2_5}, {1, "b", V2_5}};
    static constexpr Row Above[] = {{3, "c"}}, Beside[] = {{2, "c"}};
    EXPECT_TRUE(RowsRise({}));
    EXPECT_TRUE(RowsRise(Enumeration(Rising)));
    EXPECT_FALSE(RowsRise(Enumeration(Falling)));
    EXPECT_FALSE(RowsRise(Enumeration(Twice)));
    EXPECT_TRUE(RowsRise(Enumeration(Successive)));
    EXPECT_FALSE(RowsRise(Enumeration(Overlapping)));
    EXPECT_TRUE(RowsRise(Enumeration(Above, Rising)));
    EXPECT_FALSE(RowsRise(Enumeration(Beside, Rising)));
}

TEST(CatalogueData, HasPartsThatFit)
{
    static constexpr Row Three[] = {{3, "a"}}, Four[] = {{4, "a"}};
    EXPECT_TRUE(Fit(8, {{"A", 0, 3}, {"B", 4, 4}, {"C", 7, 7}}));
    EXPECT_FALSE(Fit(8, {{"A", 0, 4}, {"B", 4, 7}}));
    EXPECT_FALSE(Fit(8, {{"A", 3, 2}}));
    EXPECT_FALSE(Fit(8, {{"A", 0, 8}}));
    EXPECT_TRUE(Fit(8, {{"A", 4, 5, Enumeration(Three)}}));
    EXPECT_FALSE(Fit(8, {{"A", 4, 5, Enumeration(Four)}}));
    EXPECT_FALSE(Fit(8, {{"A", 4, 5, Enumeration(Falling)}}));
}

TEST(CatalogueData, HasFieldsThatFollowOneAnother)
{
    static constexpr Part Eight[] = {{"P", 0, 7}}, Nine[] = {{"P", 0, 8}};
    EXPECT_TRUE(Follow({{4, "A", StringReference, String, V2_3, ""},
                        {5, "B", 2, Decimal, V2_3, ""},
                        {7, "C", 1, Hex, V2_3, ""}}));
    EXPECT_FALSE(Follow({{5, "A", 1, Decimal, V2_3, ""}}));
    EXPECT_FALSE(Follow({{4, "A", 1, Decimal, V2_3, ""}, {6, "B", 1, Decimal, V2_3, ""}}));
    EXPECT_FALSE(Follow({{4, "A", 1, Decimal, V2_3, "", Enumeration(Falling)}}));
    EXPECT_TRUE(Follow({{4, "A", 1, Decimal, V3_8, "", Packed(Eight)}}));
    EXPECT_FALSE(Follow({{4, "A", 1, Decimal, V3_8, "", Packed(Nine)}}));
    EXPECT_TRUE(Follow({{4, "A", 1, Decimal, V3_8, ""}, {5, "B", AsSaidAt(4), Hex, V3_8, ""}}));
    EXPECT_FALSE(Follow({{4, "A", AsSaidAt(4), Hex, V3_8, ""}, {5, "B", 1, Decimal, V3_8, ""}}));
    EXPECT_FALSE(Follow({{4, "A", 1, Decimal, V2_4, ""}, {5, "B", 1, Decimal, V2_3, ""}}));
}

TEST(CatalogueData, HasSpecialValuesThatFit)
{
    static constexpr Row OfOneByte[] = {{0xFF, "a"}}, OfTwo[] = {{0x100, "a"}}, OfAny[] = {{AllOnes, "a"}};
    EXPECT_TRUE(Follow({{4, "A", 1, Decimal, V2_3, "", Plain.Except(OfOneByte)}}));
    EXPECT_FALSE(Follow({{4, "A", 1, Decimal, V2_3, "", Plain.Except(OfTwo)}}));
    EXPECT_FALSE(Follow({{4, "A", 1, Decimal, V2_3, "", Plain.Except(Falling)}}));
    EXPECT_TRUE(Follow({{4, "A", 16, HexBare, V2_3, "", Plain.Except(OfAny)}}));
    EXPECT_TRUE(Fit(16, {{"A", 0, 7, Plain.Except(OfOneByte)}}));
    EXPECT_FALSE(Fit(16, {{"A", 0, 7, Plain.Except(OfTwo)}}));
}

TEST(CatalogueData, HasSectionsWhoseFieldsFillTheirRecords)
{
    static constexpr Field Inside[] = {{0, "A", 1, Decimal, V3_8, ""}, {1, "B", 2, Decimal, V3_8, ""}};
    static constexpr Field Further[] = {{9, "A", 1, Decimal, V3_8, ""}};
    EXPECT_TRUE(IsWellFormed(Group("G", Behind, AsManyAsFit, BytesEach(3), Inside)));
    EXPECT_FALSE(IsWellFormed(Group("G", Behind, AsManyAsFit, BytesEach(4), Inside)));
    EXPECT_TRUE(IsWellFormed(Group("G", Behind, AsManyAsFit, EachAsSaidAt(4), Inside)));
    EXPECT_FALSE(IsWellFormed(Group("G", 9, AsManyAsFit, EachAsSaidAt(4), Further)));
    EXPECT_TRUE(IsWellFormed(FieldsOf(Further)));
    EXPECT_TRUE(IsWellFormed(FieldsBehind(Inside)));
    EXPECT_FALSE(IsWellFormed(FieldsBehind(Further)));
    EXPECT_TRUE(IsWellFormed(StringList("S")));
}

TEST(CatalogueData, HasTypesWhoseNamesAgree)
{
    static constexpr Row Other[] = {{1, "c"}}, Seen[] = {{0, "see `A`"}}, Unseen[] = {{0, "see `Z`"}};
    static constexpr Part Parts[] = {{"A", 0, 1, Enumeration(Other)}};
    static constexpr Field One[] = {{4, "A", 1, Decimal, V2_3, "", Enumeration(Rising)}};
    static constexpr Field Same[] = {{5, "A", 1, Decimal, V2_3, "", Enumeration(Rising)}};
    static constexpr Field Differing[] = {{5, "A", 1, Decimal, V2_3, "", Enumeration(Other)}};
    static constexpr Field OfPart[] = {{5, "B", 1, Decimal, V2_3, "", Packed(Parts)}};
    static constexpr Field Referring[] = {{5, "B", 1, Decimal, V2_3, "", Plain.Except(Seen)}};
    static constexpr Field Lost[] = {{5, "B", 1, Decimal, V2_3, "", Plain.Except(Unseen)}};
    const auto isWellFormed = [](const Section& section) {
        const Section sections[] = {section};
        return IsWellFormed(Type(1, Instances::Indexed, V2_3, One, sections));
    };
    EXPECT_TRUE(isWellFormed(FieldsOf(Same)));
    EXPECT_FALSE(isWellFormed(FieldsOf(Differing)));
    EXPECT_FALSE(IsWellFormed(Type(1, Instances::Indexed, V2_3, Same)));
    EXPECT_FALSE(isWellFormed(FieldsOf(Lost)));
    EXPECT_TRUE(isWellFormed(FieldsOf(Referring)));
    EXPECT_FALSE(isWellFormed(FieldsOf(OfPart)));
}

} // namespace
