// A structure's formatted length takes no part in decoding: the fields of a short structure lie over the
// structures behind it. So one of 6 bytes (header and empty string set) counts as whole, and one with a
// length byte of 0 needs only 2 or 3. Where such a one has a link, its handle is made of the next structure's
// header.

#include "hostile/HostileImages.h"

namespace HostileImages {

namespace {

using namespace TestImages;

enum Type : unsigned char {
    Bios = 0,
    System = 1,
    Chassis = 3,
    Processor = 4,
    OemStrings = 11,
    MemoryArray = 16,
    MemoryDevice = 17,
    MemoryDescription = 132,
    Unread = 200,
};

constexpr std::size_t LargestTable = 65'535 - 31; // the entry point stands behind the table
constexpr std::size_t LongestString = 254;

Bytes Repeated(std::size_t count, const Bytes& bytes)
{
    Bytes all;
    for (std::size_t i = 0; i < count; ++i)
        all.insert(all.end(), bytes.begin(), bytes.end());
    return all;
}

Bytes FullOf(const Bytes& bytes)
{
    return Image(Repeated(LargestTable / bytes.size(), bytes), 2, 7);
}

Bytes SixBytes(Type type, unsigned int handle)
{
    return Structure(type, static_cast<std::uint16_t>(handle)).Finished();
}

Structure ProcessorWith(unsigned int handle, unsigned int link1, unsigned int link2, unsigned int link3)
{
    return StructureOf(Processor, static_cast<std::uint16_t>(handle), std::string(LongestString, 'p'),
                       Bytes(21, 1), Word{link1}, Word{link2}, Word{link3}, Bytes(10, 1));
}

Structure ArrayWith(std::uint16_t handle, unsigned int link)
{
    return StructureOf(MemoryArray, handle, Bytes(7, 3), Word{link}, Word{1});
}

Structure DeviceWith(unsigned int array, unsigned int link)
{
    return StructureOf(MemoryDevice, 5, Word{array}, Word{link}, Bytes(24, 1));
}

// Six of its eight fields are the longest text that there can be.
Structure SystemWithLongTexts(std::uint16_t handle)
{
    return StructureOf(System, handle, std::string(LongestString, 's'), Bytes(22, 1));
}

// Each of `count` levels has `width` processors of one handle, and each of them has three links to the next
// level: a level is decoded 3 * width times as often as the one above it.
std::vector<Structure> MultiplyingLevels(unsigned int count, unsigned int width)
{
    std::vector<Structure> structures;
    for (unsigned int level = 1; level <= count; ++level)
        structures.insert(structures.end(), width, ProcessorWith(level, level + 1, level + 1, level + 1));
    return structures;
}

// Every processor links to three of the next, `step` apart, in rings of `handles` handles.
std::vector<Structure> Rings(unsigned int count, unsigned int handles, unsigned int step)
{
    std::vector<Structure> structures;
    const auto handle = [&](unsigned int i) { return i % handles + 1; };
    for (unsigned int i = 0; i < count; ++i)
        structures.push_back(
            ProcessorWith(handle(i), handle(i + step), handle(i + 2 * step), handle(i + 3 * step)));
    return structures;
}

// A chain of four links, with long names and with long texts at its end, that starts in each of `count`
// processors.
Bytes LongTextsBehindLinks(unsigned int count)
{
    std::vector<Structure> structures{ArrayWith(1, 2), ArrayWith(2, 3), ProcessorWith(3, 4, 4, 4),
                                      SystemWithLongTexts(4)};
    structures.insert(structures.end(), count,
                      StructureOf(Processor, 9, Bytes(22), Word{1}, Word{1}, Word{1}, Bytes(11)));
    return Image(structures);
}

// Each array takes all devices, and the tree gets a copy of all that is behind their links: `structures`, of
// which the first has handle 1.
std::vector<Structure> DevicesInArrays(unsigned int arrays, unsigned int devices,
                                       std::vector<Structure> structures)
{
    structures.insert(structures.end(), devices, DeviceWith(6, 1));
    structures.insert(structures.end(), arrays, ArrayWith(6, 1));
    return structures;
}

std::vector<Structure> CopiesOfLongTexts(unsigned int arrays)
{
    return DevicesInArrays(
        arrays, 20,
        {ArrayWith(1, 2), ProcessorWith(2, 3, 3, 3), ProcessorWith(3, 4, 4, 4), SystemWithLongTexts(4)});
}

// Behind each of `count` links stand the same `targets`, one over the other.
Bytes OneOverTheOther(unsigned int count, std::vector<Structure> targets)
{
    targets.insert(targets.end(), count, DeviceWith(2, 1));
    return Image(targets);
}

Bytes EndlessStrings(std::size_t length, std::size_t count)
{
    const Bytes string = With(Bytes(length + 1, 'x'), length, 0);
    return Join({Bios, 24, 1, 0, 1, 2, 3, 4, 5}, Join(Bytes(15, 1), Repeated(count, string)));
}

} // namespace

std::vector<HostileImage> All()
{
    return {
        {"thousands of arrays that claim thousands of devices",
         Image(Join(Repeated(5'000, SixBytes(MemoryArray, 0)), Repeated(5'000, SixBytes(MemoryDevice, 1))), 2,
               7),
         true},
        {"every device links to all devices", FullOf(SixBytes(MemoryDevice, 0x0411)), true},
        {"every array links to all arrays", FullOf(SixBytes(MemoryArray, 0x0410)), false},
        {"one handle for all processors", Image(Rings(100, 1, 0)), true},
        {"levels of links that multiply", Image(MultiplyingLevels(6, 8)), true},
        {"levels of links, one structure each", Image(MultiplyingLevels(6, 1)), false},
        {"rings", Image(Rings(60, 60, 1)), false},
        {"many rings", Image(Rings(200, 200, 1)), true},
        {"links to oneself", Image(Rings(200, 200, 0)), false},
        {"all zeros: firmware structures of two bytes", FullOf({Bios}), true},
        {"chassis of three bytes, one over the other", FullOf({Chassis, 0, 0}), false},
        {"devices of three bytes", FullOf({MemoryDevice, 0, 0}), true},
        {"arrays of three bytes", FullOf({MemoryArray, 0, 0}), true},
        {"processors of six bytes", FullOf(SixBytes(Processor, 0x0404)), true},
        {"OEM strings of six bytes", FullOf(SixBytes(OemStrings, 1)), false},
        {"a string without end", ImageWithoutEnd(EndlessStrings(64'000, 1)), false},
        {"a string set without end", ImageWithoutEnd(EndlessStrings(1, 32'000)), false},
        {"strings cut at the longest length", Image(EndlessStrings(256, 250), 2, 7), false},
        {"a structure longer than the table", ImageWithoutEnd({Bios, 255, 1, 0}), false},
        {"a header longer than the table", ImageWithoutEnd({MemoryDevice, 4, 1}), false},
    };
}

const std::vector<Family> Families = {
    {"long texts behind links", LongTextsBehindLinks, 1033},
    {"copies of long texts", [](unsigned int count) { return Image(CopiesOfLongTexts(count)); }, 95},
    // Lists of children in which two names repeat.
    {"lists that repeat",
     [](unsigned int count) {
         return OneOverTheOther(count, std::vector<Structure>(2'000, StructureOf(OemStrings, 1, 1)));
     },
     129},
    {"overwritten texts",
     [](unsigned int count) {
         return OneOverTheOther(count, std::vector<Structure>(100, SystemWithLongTexts(1)));
     },
     561},
    // Small nodes, as many as there can be.
    {"copies of bits",
     [](unsigned int count) { return Image(DevicesInArrays(count, 100, {StructureOf(Bios, 1, Bytes(20))})); },
     58},
};

Bytes FloodOfBlocks(unsigned int count, unsigned int copies)
{
    Bytes table = copies == 0 ? Bytes() : Table(CopiesOfLongTexts(copies));
    if (!table.empty())
        table.resize(table.size() - SixBytes(Unread, 0).size()); // the end structure
    return Join(table, Repeated(count, {MemoryDescription, 0, 0}));
}

} // namespace HostileImages
