// A structure's formatted length takes no part in decoding: the fields of a short structure lie over the
// structures behind it. So one of 6 bytes (header and empty string set) counts as whole, and one with a
// length byte of 0 needs only 2 or 3. Where such a one has a link, its handle is made of the next structure's
// header.

#include "hostile/HostileImages.h"

namespace HostileImages {

namespace {

using TestImages::Image;
using TestImages::Structure;

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
constexpr unsigned int NoHandle = 0xFFFF;

Bytes Repeated(std::size_t count, const Bytes& bytes)
{
    Bytes all;
    for (std::size_t i = 0; i < count; ++i)
        all.insert(all.end(), bytes.begin(), bytes.end());
    return all;
}

Bytes TableFullOf(const Bytes& bytes)
{
    return Repeated(LargestTable / bytes.size(), bytes);
}

Bytes Joined(Bytes first, const Bytes& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

Bytes SixBytes(Type type, unsigned int handle)
{
    return Structure(type, static_cast<std::uint16_t>(handle)).Finished();
}

Structure ProcessorWith(unsigned int handle, unsigned int link1, unsigned int link2, unsigned int link3)
{
    Structure structure(Processor, static_cast<std::uint16_t>(handle));
    structure.Text(std::string(LongestString, 'p')).Byte(3).Byte(1).Byte(1).Qword(0).Byte(1).Byte(0x87);
    structure.Word(1).Word(2).Word(3).Byte(0x41).Byte(1).Word(link1).Word(link2).Word(link3);
    return structure.Byte(1).Byte(1).Byte(1).Dword(0).Word(0).Byte(0);
}

Structure ArrayWith(unsigned int handle, unsigned int link)
{
    return Structure(MemoryArray, static_cast<std::uint16_t>(handle))
        .Byte(3)
        .Byte(3)
        .Byte(3)
        .Dword(1)
        .Word(link)
        .Word(1);
}

Structure DeviceWith(unsigned int handle, unsigned int array, unsigned int link)
{
    Structure structure(MemoryDevice, static_cast<std::uint16_t>(handle));
    structure.Word(array).Word(link).Word(64).Word(64).Word(1).Byte(9).Byte(0);
    return structure.Byte(0).Byte(0).Byte(24).Word(0).Word(1).Dword(0).Byte(0).Dword(0);
}

// Six of its eight fields are the longest text that there can be.
Structure SystemWithLongTexts(unsigned int handle)
{
    Structure structure(System, static_cast<std::uint16_t>(handle));
    structure.Text(std::string(LongestString, 's')).Byte(1).Byte(1).Byte(1).Qword(1).Qword(2);
    return structure.Byte(6).Byte(1).Byte(1);
}

// Each of `count` levels has `width` processors of one handle, and each of them has three links to the next
// level: a level is decoded 3 * width times as often as the one above it.
std::vector<Structure> MultiplyingLevels(unsigned int count, unsigned int width)
{
    std::vector<Structure> structures;
    for (unsigned int level = 1; level <= count; ++level)
        for (unsigned int i = 0; i < width; ++i)
            structures.push_back(ProcessorWith(level, level + 1, level + 1, level + 1));
    return structures;
}

// Every processor links to the next three: rings of many lengths, closed at the end.
std::vector<Structure> Rings(unsigned int count)
{
    std::vector<Structure> structures;
    const auto handle = [&](unsigned int i) { return i % count + 1; };
    for (unsigned int i = 0; i < count; ++i)
        structures.push_back(ProcessorWith(handle(i), handle(i + 1), handle(i + 2), handle(i + 3)));
    return structures;
}

std::vector<Structure> SelfLinks(unsigned int count)
{
    std::vector<Structure> structures;
    for (unsigned int i = 1; i <= count; ++i)
        structures.push_back(ProcessorWith(i, i, i, i));
    return structures;
}

// All processors bear the handle to which they link.
std::vector<Structure> OneHandle(unsigned int count)
{
    return std::vector<Structure>(count, ProcessorWith(7, 7, 7, 7));
}

// A chain of four links, with long names and with long texts at its end, that starts in each of `count`
// processors.
Bytes LongTextsBehindLinks(unsigned int count)
{
    std::vector<Structure> structures{ArrayWith(1, 2), ArrayWith(2, 3), ProcessorWith(3, 4, 4, 4),
                                      SystemWithLongTexts(4)};
    for (unsigned int i = 0; i < count; ++i)
        structures.push_back(Structure(Processor, 9).Fill(22).Word(1).Word(1).Word(1).Fill(11));
    return Image(structures);
}

// Each array takes all devices, and the tree gets a copy of all that is behind their links: `structures`, of
// which the first has handle 1.
std::vector<Structure> DevicesInArrays(unsigned int arrays, unsigned int devices,
                                       std::vector<Structure> structures)
{
    structures.insert(structures.end(), devices, DeviceWith(5, 6, 1));
    structures.insert(structures.end(), arrays, ArrayWith(6, 1));
    return structures;
}

std::vector<Structure> CopiesOfLongTextsIn(unsigned int arrays)
{
    return DevicesInArrays(
        arrays, 20,
        {ArrayWith(1, 2), ProcessorWith(2, 3, 3, 3), ProcessorWith(3, 4, 4, 4), SystemWithLongTexts(4)});
}

Bytes CopiesOfLongTexts(unsigned int count)
{
    return Image(CopiesOfLongTextsIn(count));
}

// Small nodes, as many as there can be.
Bytes CopiesOfBits(unsigned int count)
{
    return Image(DevicesInArrays(count, 100, {Structure(Bios, 1).Fill(20)}));
}

// Behind each of `count` links stand the same 2,000 structures, one over the other: lists of children in
// which two names repeat.
Bytes RepeatingLists(unsigned int count)
{
    std::vector<Structure> structures(2'000, Structure(OemStrings, 1).Byte(1));
    structures.insert(structures.end(), count, DeviceWith(2, NoHandle, 1));
    return Image(structures);
}

// Texts of the longest kind: each overwrites the one before it.
Bytes OverwrittenTexts(unsigned int count)
{
    std::vector<Structure> structures(100, SystemWithLongTexts(1));
    structures.insert(structures.end(), count, DeviceWith(2, NoHandle, 1));
    return Image(structures);
}

Bytes EndlessStrings(std::size_t length, std::size_t count)
{
    Bytes string(length, 'x');
    string.push_back(0);
    return Joined({Bios, 24, 1, 0, 1, 2, 3, 4, 5}, Joined(Bytes(15, 1), Repeated(count, string)));
}

Bytes WithoutEnd(const Bytes& table)
{
    Bytes image = Structure(Unread, 1).Raw(TestImages::EntryPoint(2, 7)).Finished();
    image.insert(image.end(), table.begin(), table.end());
    return image;
}

} // namespace

std::vector<HostileImage> All()
{
    const Bytes devicesOfHandleNull = Repeated(5'000, SixBytes(MemoryDevice, 1));
    return {
        {"thousands of arrays that claim thousands of devices",
         Image(Joined(Repeated(5'000, SixBytes(MemoryArray, 0)), devicesOfHandleNull), 2, 7), true},
        {"every device links to all devices", Image(TableFullOf(SixBytes(MemoryDevice, 0x0411)), 2, 7), true},
        {"every array links to all arrays", Image(TableFullOf(SixBytes(MemoryArray, 0x0410)), 2, 7), false},
        {"one handle for all processors", Image(OneHandle(100)), true},
        {"levels of links that multiply", Image(MultiplyingLevels(6, 8)), true},
        {"levels of links, one structure each", Image(MultiplyingLevels(6, 1)), false},
        {"rings", Image(Rings(60)), false},
        {"many rings", Image(Rings(200)), true},
        {"links to oneself", Image(SelfLinks(200)), false},
        {"all zeros: firmware structures of two bytes", Image(Bytes(LargestTable), 2, 7), true},
        {"chassis of three bytes, one over the other", Image(TableFullOf({Chassis, 0, 0}), 2, 7), false},
        {"devices of three bytes", Image(TableFullOf({MemoryDevice, 0, 0}), 2, 7), true},
        {"arrays of three bytes", Image(TableFullOf({MemoryArray, 0, 0}), 2, 7), true},
        {"processors of six bytes", Image(TableFullOf(SixBytes(Processor, 0x0404)), 2, 7), true},
        {"OEM strings of six bytes", Image(TableFullOf(SixBytes(OemStrings, 1)), 2, 7), false},
        {"a string without end", WithoutEnd(EndlessStrings(64'000, 1)), false},
        {"a string set without end", WithoutEnd(EndlessStrings(1, 32'000)), false},
        {"strings cut at the longest length", Image(EndlessStrings(256, 250), 2, 7), false},
        {"a structure longer than the table", WithoutEnd({Bios, 255, 1, 0}), false},
        {"a header longer than the table", WithoutEnd({MemoryDevice, 4, 1}), false},
    };
}

const std::vector<Family> Families = {
    {"long texts behind links", LongTextsBehindLinks},
    {"copies of long texts", CopiesOfLongTexts},
    {"lists that repeat", RepeatingLists},
    {"overwritten texts", OverwrittenTexts},
    {"copies of bits", CopiesOfBits},
};

Bytes FloodOfBlocks(unsigned int count, unsigned int copies)
{
    Bytes table = copies == 0 ? Bytes() : TestImages::Table(CopiesOfLongTextsIn(copies));
    if (!table.empty())
        table.resize(table.size() - SixBytes(Unread, 0).size()); // the end structure
    return Joined(table, Repeated(count, {MemoryDescription, 0, 0}));
}

} // namespace HostileImages
