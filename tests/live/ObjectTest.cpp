// What becomes of an object of the running machine: it is read anew, and copied; and that an object of an
// image is none.

#include "samples/TableText.h"
#include "support/FakeSystem.h"

#include <gtest/gtest.h>

using namespace FakeSystem;
using OS::Driver::MappingOwner;

// An explicit instantiation may name a private member, and hands it on.
template <typename Member, Member Pointer, typename Tag>
struct Private {
    friend Member Get(Tag) { return Pointer; }
};
#define PRIVATE_MEMBER(TYPE, NAME)                                                                           \
    struct NAME##Tag {};                                                                                     \
    TYPE SMBIOSProtocolImpl::*Get(NAME##Tag);                                                                \
    template struct Private<TYPE SMBIOSProtocolImpl::*, &SMBIOSProtocolImpl::NAME, NAME##Tag>;
PRIVATE_MEMBER(MappingOwner, EntryMapping)
PRIVATE_MEMBER(MappingOwner, TableMapping)

namespace {

const Bytes Table = Images::FromText("10 1: 3 1 \"device\"\n133 2: d:0x100000 d:0x10000\nend");

std::pair<unsigned int, unsigned int> ReservedMemory(SMBIOSProtocolImpl& object)
{
    std::pair<unsigned int, unsigned int> range = {1, 1};
    object.GetBiosReservedMem(&range.first, &range.second);
    return range;
}

constexpr std::pair<unsigned int, unsigned int> Reserved = {0x100000, 0x10000}, None = {0, 0};

bool HasMappings(SMBIOSProtocolImpl& object)
{
    return (object.*Get(EntryMappingTag())).get() != nullptr &&
           (object.*Get(TableMappingTag())).get() != nullptr;
}

bool HasNoMapping(SMBIOSProtocolImpl& object)
{
    return (object.*Get(EntryMappingTag())).get() == nullptr &&
           (object.*Get(TableMappingTag())).get() == nullptr;
}

TEST(LiveObject, GivesItsMappingsToACopy)
{
    TheMachine = Machine::WithEntryPoint(Table);
    const ObjectOwner source = NewLiveObject();
    ASSERT_TRUE(HasMappings(*source));
    SMBIOSProtocolImpl copy(*source);
    EXPECT_TRUE(HasMappings(copy));
    EXPECT_TRUE(HasNoMapping(*source));
    EXPECT_EQ(ReservedMemory(copy), Reserved);
    EXPECT_EQ(ReservedMemory(*source), Reserved);
    *source = copy;
    EXPECT_TRUE(HasMappings(*source));
    EXPECT_TRUE(HasNoMapping(copy));

    copy = *Decoded(Images::Image(Bytes(), 2, 7));
    EXPECT_EQ(ReservedMemory(copy), None);
    copy = std::as_const(*source);
    EXPECT_TRUE(HasMappings(*source)) << "a constant source keeps them";
    EXPECT_TRUE(HasNoMapping(copy));
    EXPECT_EQ(ReservedMemory(copy), Reserved);
}

TEST(LiveObject, HoldsNothingOfBeforeWhereItIsReadAnewInVain)
{
    TheMachine = Machine::WithEntryPoint(Table);
    const ObjectOwner object = NewLiveObject();
    EXPECT_EQ(ReservedMemory(*object), Reserved);
    TheMachine = {};
    TheMachine.FailingMap = 1;
    EXPECT_THROW(ReadAgain(*object), ResultStatus);
    EXPECT_EQ(ReservedMemory(*object), None);
    EXPECT_TRUE(HasNoMapping(*object));
    EXPECT_TRUE(Everything(*object).empty());

    TheMachine = Machine::WithBlock(Table);
    ReadAgain(*object);
    EXPECT_EQ(ReservedMemory(*object), Reserved);
    EXPECT_FALSE(Everything(*object).empty());
}

// The SPD block and the reserved range that the table has are matters of the running machine.
TEST(ImageObject, AsksNoServiceAndLogsNothing)
{
    TheMachine = {};
    Record();
    LOGGER::Logger::CreateInstance().TraceLocks = true;
    const auto object =
        Decoded(Images::Image(Images::Join(Images::FromText("132 1: d:0x7000 d:2 0 1 2 3"), Table), 2, 7));
    LOGGER::Logger::CreateInstance().TraceLocks = false;
    EXPECT_EQ(TheMachine.Seen, "");
    EXPECT_TRUE(HasNoMapping(*object));
    EXPECT_EQ(ReservedMemory(*object), None);
    EXPECT_EQ(Everything(*object).count("/SMBIOS/Type132[1]/Address"), 1U);
    EXPECT_EQ(Everything(*object).count("/SMBIOS/Type132[1]/SPD_RAW"), 0U);
}

} // namespace
