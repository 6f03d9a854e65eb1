// The compiler checks the catalogue's data with rules that data in order cannot try out: each with data that
// just keep it, and that just do not.

#include "catalogue/Definition.h"

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
    return IsWellFormed(fields);
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

} // namespace
