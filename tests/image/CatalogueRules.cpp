// The compiler checks the catalogue's data with rules, which data in order cannot try out. Here it checks
// that they take data that just keep them, and refuse data that just do not.

#include "catalogue/WellFormed.h"

using namespace Protocol::SMBIOS::Catalogue;

namespace {

template <std::size_t N>
constexpr bool Fit(const Part (&parts)[N])
{
    return PartsFit(Packed(parts), 8);
}

template <std::size_t N>
constexpr bool Follow(const Field (&fields)[N])
{
    return FieldsFollow(fields, N, 4);
}

constexpr Row Rising[] = {{1, "a"}, {2, "b"}}, Falling[] = {{2, "a"}, {1, "b"}},
              Twice[] = {{1, "a"}, {1, "b"}};
constexpr Row Successive[] = {{1, "a", V2_3, V2_4}, {1, "b", V2_5}};
constexpr Row Overlapping[] = {{1, "a", V2_3, V2_5}, {1, "b", V2_5}};
constexpr Row Two[] = {{2, "c"}}, Three[] = {{3, "c"}}, Four[] = {{4, "c"}};
static_assert(RowsRise({}) && RowsRise(Enumeration(Rising)) && RowsRise(Enumeration(Successive)));
static_assert(!RowsRise(Enumeration(Falling)) && !RowsRise(Enumeration(Twice)));
static_assert(!RowsRise(Enumeration(Overlapping)));
static_assert(RowsRise(Enumeration(Three, Rising)) && !RowsRise(Enumeration(Two, Rising)));

constexpr Row OfByte[] = {{0xFF, "a"}}, OfTwoBytes[] = {{0x100, "a"}}, OfAnyNumber[] = {{AllOnes, "a"}};
static_assert(Fit({{"A", 0, 3}, {"B", 4, 4}, {"C", 7, 7}}) && !Fit({{"A", 0, 4}, {"B", 4, 7}}));
static_assert(!Fit({{"A", 3, 2}}) && !Fit({{"A", 0, 8}}));
static_assert(Fit({{"A", 4, 5, Enumeration(Three)}}) && !Fit({{"A", 4, 5, Enumeration(Four)}}));
static_assert(!Fit({{"A", 4, 5, Enumeration(Falling)}}));
static_assert(Fit({{"A", 0, 7, Plain.Except(OfByte)}}) && !Fit({{"A", 0, 7, Plain.Except(OfTwoBytes)}}));

constexpr Part Eight[] = {{"P", 0, 7}}, Nine[] = {{"P", 0, 8}};
static_assert(Follow({{4, "A", StringReference, String, V2_3, ""},
                      {5, "B", 2, Decimal, V2_3, ""},
                      {7, "C", 1, Hex, V2_3, ""}}));
static_assert(!Follow({{5, "A", 1, Decimal, V2_3, ""}}));
static_assert(!Follow({{4, "A", 1, Decimal, V2_3, ""}, {6, "B", 1, Decimal, V2_3, ""}}));
static_assert(!Follow({{4, "A", 1, Decimal, V2_4, ""}, {5, "B", 1, Decimal, V2_3, ""}}));
static_assert(!Follow({{4, "A", 1, Decimal, V2_3, "", Enumeration(Falling)}}));
static_assert(Follow({{4, "A", 1, Decimal, V3_8, "", Packed(Eight)}}));
static_assert(!Follow({{4, "A", 1, Decimal, V3_8, "", Packed(Nine)}}));
static_assert(Follow({{4, "A", 1, Decimal, V3_8, ""}, {5, "B", AsSaidAt(4), Hex, V3_8, ""}}));
static_assert(!Follow({{4, "A", AsSaidAt(4), Hex, V3_8, ""}, {5, "B", 1, Decimal, V3_8, ""}}));
static_assert(Follow({{4, "A", 1, Decimal, V2_3, "", Plain.Except(OfByte)}}));
static_assert(!Follow({{4, "A", 1, Decimal, V2_3, "", Plain.Except(OfTwoBytes)}}));
static_assert(Follow({{4, "A", 16, HexBare, V2_3, "", Plain.Except(OfAnyNumber)}}));

constexpr Field Inside[] = {{0, "A", 1, Decimal, V3_8, ""}, {1, "B", 2, Decimal, V3_8, ""}};
constexpr Field Further[] = {{9, "A", 1, Decimal, V3_8, ""}};
static_assert(IsWellFormed(Group("G", Behind, AsManyAsFit, BytesEach(3), Inside)));
static_assert(!IsWellFormed(Group("G", Behind, AsManyAsFit, BytesEach(4), Inside)));
static_assert(IsWellFormed(Group("G", Behind, AsManyAsFit, EachAsSaidAt(4), Inside)));
static_assert(!IsWellFormed(Group("G", 9, AsManyAsFit, EachAsSaidAt(4), Further)));
static_assert(IsWellFormed(FieldsOf(Further)) && IsWellFormed(FieldsBehind(Inside)));
static_assert(!IsWellFormed(FieldsBehind(Further)) && IsWellFormed(StringList("S")));

// A type with the field A, and another.
constexpr Row SeesA[] = {{0, "see `A`"}}, SeesZ[] = {{0, "see `Z`"}};
constexpr Part PartsWithA[] = {{"A", 0, 1, Enumeration(Two)}};
constexpr Field A[] = {{4, "A", 1, Decimal, V2_3, "", Enumeration(Rising)}};

constexpr bool IsWellFormedBesideA(const Field& field)
{
    const Field fields[] = {field};
    const Section sections[] = {FieldsOf(fields)};
    return IsWellFormed(Type(1, Instances::Indexed, V2_3, A, sections));
}
static_assert(IsWellFormedBesideA({5, "A", 1, Decimal, V2_3, "", Enumeration(Rising)}));
static_assert(!IsWellFormedBesideA({5, "A", 1, Decimal, V2_3, "", Enumeration(Two)}));
static_assert(!IsWellFormedBesideA({5, "B", 1, Decimal, V2_3, "", Packed(PartsWithA)}));
static_assert(IsWellFormedBesideA({5, "B", 1, Decimal, V2_3, "", Plain.Except(SeesA)}));
static_assert(!IsWellFormedBesideA({5, "B", 1, Decimal, V2_3, "", Plain.Except(SeesZ)}));

} // namespace
