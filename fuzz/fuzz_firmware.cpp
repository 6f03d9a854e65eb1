// The raw block of the operating system. The input: a byte by which the size that the firmware tells first
// exceeds the truth, then the block.

#include "Properties.h"

#include <algorithm>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    constexpr std::size_t HeaderSize = 8;
    if (size < 1)
        return 0;
    FakeSystem::Machine machine;
    machine.Block.assign(data + 1, data + size);
    machine.QueriedSize = data[0] == 0 ? 0 : static_cast<unsigned long>(size - 1 + data[0]);
    const ObjectOwner object = TryMakeLive(machine);
    if (object == nullptr)
        return 0;
    const Tree tree = Everything(*object);
    const unsigned int share = ShareOf(data, size);
    CheckObject(*object, tree, share);

    if (share % 8 == 0) {
        Require(AreEqual(Everything(*TryMakeLive(machine)), tree), "the same block gives the same tree");
        return 0;
    }
    // The same table behind an entry point in physical memory.
    Bytes block(machine.Block);
    block.resize(std::max<std::size_t>(block.size(), machine.QueriedSize)); // zeros behind the truth
    const std::size_t claimed = static_cast<std::size_t>(block[4] | block[5] << 8);
    const std::size_t length = std::min(claimed, block.size() - HeaderSize);
    const Bytes table(block.data() + HeaderSize, block.data() + HeaderSize + length);
    Require(CheckRoute(FakeSystem::Machine::WithEntryPoint(table, block[1], block[2]), tree),
            "a table is accepted on both live routes");
    return 0;
}
