// The object of the running machine: how it comes about, what fails it, that it reads what an image would
// give, and what it alone reads.

#include "support/FakeSystem.h"
#include "support/SampleServer.h"
#include "support/Tree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <numeric>

using namespace FakeSystem;
using namespace TestImages;

namespace {

std::vector<std::string> WithoutBlocks(SMBIOSProtocolImpl& object)
{
    std::vector<std::string> leaves = Tree(object).Leaves("/SMBIOS");
    const auto isBlock = [](const std::string& leaf) { return leaf.find("/SPD_RAW") != std::string::npos; };
    leaves.erase(std::remove_if(leaves.begin(), leaves.end(), isBlock), leaves.end());
    return leaves;
}

// The sample has three SPD blocks, whose bytes physical memory alone can give, and a reserved range.
TEST(LiveObject, HasTheTreeOfTheImageOnEachRoute)
{
    Bytes table = TwoSocketServer();
    table.resize(table.size() - EntryPoint(2, 7).size());
    const unsigned char versions[][2] = {{2, 3}, {2, 4}, {2, 5}, {2, 6}, {2, 7}, {2, 8}, {3, 0}};
    for (const auto& [major, minor] : versions) {
        for (const bool isBlock : {false, true}) {
            SCOPED_TRACE(std::to_string(major) + "." + std::to_string(minor) + (isBlock ? " block" : ""));
            const auto machine = isBlock ? Machine::WithBlock : Machine::WithEntryPoint;
            const bool hasOemTypes = major * 10 + minor >= 27;
            TheMachine = machine(table, major, minor);
            const auto live = NewLiveObject();
            EXPECT_EQ(Tree(*live).Has("/SMBIOS/Type132[3]/SPD_RAW"), hasOemTypes);
            EXPECT_EQ(WithoutBlocks(*live), WithoutBlocks(*Decoded(Image(table, major, minor))));

            unsigned int address = 7, size = 7;
            live->GetBiosReservedMem(nullptr, nullptr);
            live->GetBiosReservedMem(&address, nullptr);
            live->GetBiosReservedMem(nullptr, &size);
            EXPECT_EQ(address, hasOemTypes ? 0x7F000000U : 0U);
            EXPECT_EQ(size, hasOemTypes ? 0x01000000U : 0U);
            TheMachine = machine(table, 2, 9);
            EXPECT_EQ(Create(), RESULT_UNSUPPORTED_VERSION);
        }
    }
}

// A table for three mappings: the segment's, its own, and that of an SPD block.
class ThreeMappings : public testing::Test {
protected:
    ThreeMappings() { TheMachine = Machine::WithEntryPoint(Contents); }

    const Bytes Contents = Table({StructureOf(1, 1, "Maker", "Machine", Bytes(21)),
                                  StructureOf(132, 2, Dword{0xFFF00000}, Dword{3}, Bytes(4)),
                                  StructureOf(133, 3, Dword{0xFFFFFFFF}, Dword{0xFFFFFFFE})});
    const std::vector<Events> Mappings = {Mapped(SegmentAddress, SegmentLength),
                                          Mapped(TableAddress, Contents.size()), Mapped(0xFFF00000, 3)};
};

// Each fails, with the lock given back and the failure passed on; then none fails.
TEST_F(ThreeMappings, FailAndTheSingletonStartsOver)
{
    TheMachine.Records = true;
    const ResultStatus denied(RESULT_MAPPING_DENIED, "no way", "driver", _XCOMMAND(1));
    const std::exception_ptr failures[] = {std::make_exception_ptr(std::bad_alloc()),
                                           std::make_exception_ptr(denied)};
    for (unsigned int site = 1; site <= 3; ++site) {
        for (const std::exception_ptr& failure : failures) {
            TheMachine.MapFailure = failure;
            TheMachine.FailingMap = site;
            TheMachine.Seen.clear();
            try {
                SMBIOSProtocolImpl::CreateInstance();
                FAIL() << "site " << site;
            } catch (const ResultStatus& caught) {
                EXPECT_EQ(caught.Code(), denied.Code());
                EXPECT_EQ(caught.Message(), denied.Message());
                EXPECT_EQ(caught.Source(), denied.Source());
                EXPECT_EQ(caught.Command(), denied.Command());
            } catch (const std::bad_alloc&) {
                EXPECT_EQ(failure, failures[0]);
            }
            EXPECT_EQ(TheMachine.Seen, Joined({Mappings.begin(), Mappings.begin() + site}));
        }
    }
    TheMachine.Seen.clear();
    SMBIOSProtocolImpl& first = SMBIOSProtocolImpl::CreateInstance();
    EXPECT_EQ(TheMachine.Seen, Joined(Mappings));
    EXPECT_EQ(&SMBIOSProtocolImpl::CreateInstance(), &first);
    unsigned int address = 0, size = 0;
    first.GetBiosReservedMem(&address, &size);
    EXPECT_EQ(address, 0xFFFFFFFFU);
    EXPECT_EQ(size, 0xFFFFFFFEU);
    EXPECT_NE(TextOf(first).find("Maker"), std::string::npos);
    EXPECT_EQ(TheMachine.Seen, Joined(Mappings)) << "a finished object answers by itself";
}

TEST_F(ThreeMappings, AreTracedOnDemandEachBeforeItsLock)
{
    LOGGER::Logger::CreateInstance().TraceLocks = true;
    ASSERT_EQ(Create(), 0);
    LOGGER::Logger::CreateInstance().TraceLocks = false;
    const auto trace = [](const std::string& function) {
        return Events{Logged(function, "Locking at .\\SMBIOSProtocolImpl: "
                                       "Protocol::SMBIOS::SMBIOSProtocolImpl::" +
                                           function + ": LINE")};
    };
    EXPECT_EQ(TheMachine.Seen, Joined({trace("GetSMBiosEntryPtr"), Mappings[0], trace("GetSMBiosEntryPtr"),
                                       Mappings[1], trace("DumpMemorySPD"), Mappings[2]}));
}

TEST_F(ThreeMappings, GoOnWithoutALock)
{
    TheMachine.LockIsFree = false;
    EXPECT_EQ(Create(), 0);
    EXPECT_EQ(TheMachine.Seen, Joined(Mappings));
}

// At most 512 bytes of each block; none where the table ends ahead of the block's size or address.
TEST(LiveObject, ReadsTheBytesOfEachMemoryModule)
{
    const std::pair<std::uint32_t, std::size_t> sizes[] = {{256, 256},        {0, 0}, {512, 512}, {513, 512},
                                                           {0xFFFFFFFF, 512}, {3, 3}};
    Bytes table, bytes(600);
    std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(0x92));
    std::string text;
    for (const unsigned char byte : bytes) {
        char hex[8];
        std::snprintf(hex, sizeof hex, "0x%02X ", byte);
        text += hex;
    }
    std::vector<Events> mappings = {Mapped(SegmentAddress, SegmentLength), {}};
    std::uint32_t address = 0xFFF00001;
    for (const auto& [size, read] : sizes) {
        table = Join(table, StructureOf(132, 1, Dword{address}, Dword{size}, Bytes(4)).Finished());
        mappings.push_back(Mapped(address, read));
        address += 0x1000;
    }
    table = Join(table, StructureOf(132, 2, Dword{address}).Finished());
    mappings[1] = Mapped(TableAddress, table.size());

    TheMachine = Machine::WithEntryPoint(table);
    for (std::uint32_t block = 0xFFF00001; block != address; block += 0x1000)
        TheMachine.Memory[block] = bytes;
    const Machine machine = TheMachine;
    ASSERT_EQ(Create(), 0);
    EXPECT_EQ(TheMachine.Seen, Joined(mappings));
    TheMachine = machine;
    Tree tree(*NewLiveObject());
    std::size_t number = 0;
    for (const auto& [size, read] : sizes) {
        const std::string block = "/SMBIOS/Type132[" + std::to_string(++number) + "]";
        EXPECT_EQ(tree.Leaf(block + "/SPD_RAW"), text.substr(0, 5 * read)) << size;
        EXPECT_EQ(tree.Children(block).back(), "/SPD_RAW");
    }
    EXPECT_EQ(tree.Children("/SMBIOS/Type132[7]"), std::vector<std::string>{"/Address"});

    TheMachine = Machine::WithEntryPoint(StructureOf(132, 1).Finished());
    EXPECT_TRUE(Tree(*NewLiveObject()).Children("/SMBIOS/Type132[1]").empty());
}

} // namespace
