// The BIOS segment and the table to which it leads. The input:
//
//   offset  width  use
//   0       1      bits 3:0 number of the Map call that fails, 0 none; bit 7 the checksum is made to hold
//   1       2      where in the segment the rest stands, little-endian, modulo its length
//   3              bytes of the segment; from 32 bytes on, bytes of the table too

#include "Properties.h"

#include <algorithm>
#include <numeric>

namespace {

using FakeSystem::SegmentLength;

constexpr std::size_t ControlLength = 3;
constexpr std::size_t TableOffset = 32;

unsigned char* FirstAnchor(Bytes& segment)
{
    for (std::size_t offset = 0; offset + 28 <= segment.size(); offset += 4) {
        if (std::equal(&segment[offset], &segment[offset + 4], "_SM_"))
            return &segment[offset];
    }
    return nullptr;
}

FakeSystem::Machine MachineOf(const unsigned char* data, std::size_t size)
{
    FakeSystem::Machine machine;
    machine.FailingMap = data[0] & 0xFU;
    const std::size_t offset = static_cast<std::size_t>(data[1] | data[2] << 8) % SegmentLength;
    const unsigned char* const rest = data + ControlLength;
    const std::size_t length = size - ControlLength;

    Bytes segment(SegmentLength, 0xFF);
    std::copy_n(rest, std::min(length, SegmentLength - offset), &segment[offset]);
    if (unsigned char* const anchor = FirstAnchor(segment)) {
        const auto address = static_cast<std::uint32_t>(anchor[24] | anchor[25] << 8 | anchor[26] << 16) |
                             static_cast<std::uint32_t>(anchor[27]) << 24;
        machine.Memory[address].assign(rest + std::min(length, TableOffset), rest + length);
        const std::ptrdiff_t summed = std::min<std::ptrdiff_t>(anchor[5], &segment.back() - anchor);
        if ((data[0] & 0x80U) != 0)
            anchor[4] = static_cast<unsigned char>(anchor[4] - std::accumulate(anchor, anchor + summed, 0U));
    }
    machine.Memory[FakeSystem::SegmentAddress] = segment;
    return machine;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    if (size < ControlLength || size > 65'535)
        return 0;
    const FakeSystem::Machine machine = MachineOf(data, size);
    const ObjectOwner object = TryMakeLive(machine);
    if (object == nullptr)
        return 0;
    const Tree tree = Everything(*object);
    const unsigned int share = ShareOf(data, size);
    CheckObject(*object, tree, share);

    if (share % 2 == 0) {
        Require(AreEqual(Everything(*TryMakeLive(machine)), tree), "the same machine gives the same tree");
    } else {
        FakeSystem::TheMachine = machine;
        FakeSystem::ReadAgain(*object);
        Require(AreEqual(Everything(*object), tree), "reading anew gives the same tree");
    }
    return 0;
}
