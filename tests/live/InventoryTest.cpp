// The raw SPD data that a live object reads from physical memory.

#include "Machine.h"

#include <gtest/gtest.h>

#include <numeric>

using Protocol::SMBIOS::SMBIOSProtocolImpl;
using TestImages::Bytes;
using TestImages::Structure;
using TestImages::Table;

namespace {

constexpr std::uint32_t TableAddress = 0xE1235;

Structure SpdBlock(std::uint16_t handle, std::uint32_t address, std::uint32_t size)
{
    return Structure(132, handle).Dword(address).Dword(size).Byte(1).Byte(2).Byte(3).Byte(0);
}

Bytes Counting(std::size_t count, unsigned char first)
{
    Bytes bytes(count);
    std::iota(bytes.begin(), bytes.end(), first);
    return bytes;
}

std::string HexText(const Bytes& bytes, std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        char byte[8];
        std::snprintf(byte, sizeof byte, "0x%02X ", bytes[i]);
        text += byte;
    }
    return text;
}

TEST(SpdDump, ReadsAtMost512BytesOfEachBlock)
{
    struct Row {
        std::uint32_t Size;
        unsigned int Read;
    };
    const Row rows[] = {{256, 256}, {0, 0}, {512, 512}, {513, 512}, {0xFFFFFFFF, 512}, {3, 3}};

    std::vector<Structure> structures;
    for (const Row& row : rows) {
        const auto number = static_cast<std::uint16_t>(structures.size() + 1);
        structures.push_back(SpdBlock(number, 0xFFF00001U + 0x1000U * number, row.Size));
        TheMachine.Memory[0xFFF00001UL + 0x1000UL * number] =
            Counting(600, static_cast<unsigned char>(number * 16));
    }
    const Bytes table = Table(structures);
    TheMachine.PutTable(table);
    ASSERT_EQ(Create(), 0);

    std::vector<Events> mappings = {Mapped(SegmentAddress, SegmentLength),
                                    Mapped(TableAddress, static_cast<unsigned int>(table.size()))};
    for (unsigned int i = 1; i <= std::size(rows); ++i) {
        const unsigned long address = 0xFFF00001UL + 0x1000UL * i;
        const unsigned int read = rows[i - 1].Read;
        mappings.push_back(Mapped(address, read));
        EXPECT_EQ(LiveLeaf("/SMBIOS/Type132[" + std::to_string(i) + "]/SPD_RAW"),
                  HexText(TheMachine.Memory[address], read))
            << rows[i - 1].Size;
    }
    EXPECT_EQ(TheMachine.Seen, Joined(mappings));

    const std::string first = "/SMBIOS/Type132[1]";
    EXPECT_EQ(
        Search(SMBIOSProtocolImpl::CreateInstance(), first).at(first).Items,
        (std::vector<std::string>{first + "/Address", first + "/Size", first + "/Socket", first + "/Channel",
                                  first + "/DimmSlot", first + "/Reserved", first + "/SPD_RAW"}));
}

// The table ends in its last structure: first behind the address, then behind the header.
class SpdDumpOfCutStructure : public testing::TestWithParam<bool> {};

TEST_P(SpdDumpOfCutStructure, IsLeftOut)
{
    const bool hasAddress = GetParam();
    Bytes table = SpdBlock(1, 0x5000, 2).Finished();
    Structure cut(132, 2);
    if (hasAddress)
        cut.Dword(0x6000);
    const Bytes last = cut.Finished();
    table.insert(table.end(), last.begin(), last.end());
    TheMachine.Memory[0x5000] = {0x92, 0x0B};
    TheMachine.PutTable(table);
    ASSERT_EQ(Create(), 0);

    EXPECT_EQ(LiveLeaf("/SMBIOS/Type132[1]/SPD_RAW"), "0x92 0x0B ");
    EXPECT_EQ(LiveLeaf("/SMBIOS/Type132[2]/Address"), hasAddress ? "24576" : "(no node)");
    EXPECT_EQ(LiveLeaf("/SMBIOS/Type132[2]/Size"), "(no node)");
    EXPECT_EQ(LiveLeaf("/SMBIOS/Type132[2]/SPD_RAW"), "(no node)");
}

INSTANTIATE_TEST_SUITE_P(, SpdDumpOfCutStructure, testing::Bool());

} // namespace
