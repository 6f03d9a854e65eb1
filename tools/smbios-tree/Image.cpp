// A dump, whose table stands at a fixed offset:
//
//   offset  field
//   00h     entry point, 32- or 64-bit form
//   20h     structure table

#include "Image.h"

#include "Failure.h"

#include <algorithm>
#include <limits>

namespace SmbiosTree {

namespace {

constexpr std::size_t TableOffset = 0x20;
constexpr std::size_t MaxImageSize = std::numeric_limits<unsigned short>::max();

constexpr unsigned char EndOfTable = 127;
constexpr std::size_t HeaderSize = 4;

// The end of the structure at `start`, its string set included; 0 where the table ends before it.
std::size_t EndOfStructure(const Bytes& table, std::size_t start)
{
    if (table.size() - start < HeaderSize || table.size() - start < table[start + 1])
        return 0;
    constexpr unsigned char TwoNuls[] = {0, 0};
    const auto strings = table.begin() + static_cast<std::ptrdiff_t>(start + table[start + 1]);
    const auto end = std::search(strings, table.end(), std::begin(TwoNuls), std::end(TwoNuls));
    return end == table.end() ? 0 : static_cast<std::size_t>(end - table.begin()) + sizeof TwoNuls;
}

// The size of the table up to its end structure, this included, or up to its last structure where it has no
// end; 0 where it ends within a structure.
std::size_t SizeInStructures(const Bytes& table)
{
    for (std::size_t start = 0; start < table.size();) {
        const std::size_t end = EndOfStructure(table, start);
        if (end == 0 || table[start] == EndOfTable)
            return end;
        start = end;
    }
    return table.size();
}

[[noreturn]] void RaiseTruncated(const Bytes& table, const EntryPoint& entryPoint)
{
    throw Failure(Kind::Truncated, "the table is cut off after " + std::to_string(table.size()) + " of " +
                                       std::to_string(entryPoint.TableLength) +
                                       " bytes; take the dump again");
}

// Cuts off what does not belong to the table.
void TrimTable(Bytes& table, const EntryPoint& entryPoint)
{
    const bool isShort = table.size() < entryPoint.TableLength;
    if (isShort && entryPoint.IsLengthExact)
        RaiseTruncated(table, entryPoint);
    table.resize(std::min(table.size(), entryPoint.TableLength));
    if (entryPoint.IsLengthExact)
        return;
    const std::size_t size = SizeInStructures(table);
    if (isShort && size == 0)
        RaiseTruncated(table, entryPoint);
    if (size != 0)
        table.resize(size);
}

// The image of a table and the entry point that belongs to it.
Image Compose(Bytes table, const EntryPoint& entryPoint, std::optional<Version> readAs)
{
    TrimTable(table, entryPoint);
    if (table.empty())
        throw Failure(Kind::Empty, "the entry point gives its table no length; take the dump again");
    Image image;
    image.Version = readAs.value_or(entryPoint.Version);
    const Bytes small = MakeEntryPoint(image.Version);
    if (table.size() + small.size() > MaxImageSize)
        throw Failure(Kind::TooLarge, "a table of " + std::to_string(table.size()) + " bytes; at most " +
                                          std::to_string(MaxImageSize - small.size()) +
                                          " can be read: cut it behind a structure and end it with type 127");
    if (FindAnchor(table) != table.size())
        throw Failure(Kind::Damaged, "a text in the table reads \"_SM_\" like an entry point; change it in a "
                                     "copy of the table");
    image.Data = std::move(table);
    image.Data.insert(image.Data.end(), small.begin(), small.end());
    return image;
}

Image FromDump(const Bytes& dump, std::optional<Version> readAs)
{
    const EntryPoint entryPoint = ReadEntryPoint(dump);
    if (dump.size() <= TableOffset)
        throw Failure(Kind::Truncated,
                      "it ends before the table, which begins at offset 32; take the dump again");
    return Compose({dump.begin() + TableOffset, dump.end()}, entryPoint, readAs);
}

Image AsItIs(Bytes bytes, std::optional<Version> readAs)
{
    if (bytes.size() > MaxImageSize)
        throw Failure(Kind::TooLarge, "an image of " + std::to_string(bytes.size()) + " bytes; at most " +
                                          std::to_string(MaxImageSize) +
                                          " can be read: cut off what is neither table nor entry point");
    const std::size_t anchor = FindAnchor(bytes);
    if (readAs)
        RewriteVersion(bytes, anchor, *readAs);
    Image image;
    image.Version = VersionAt(bytes, anchor);
    image.Data = std::move(bytes);
    return image;
}

} // namespace

Image MakeImage(Contents contents, std::optional<Version> readAs)
{
    if (contents.IsFolder)
        return Compose(std::move(contents.Table), ReadEntryPoint(contents.EntryPoint), readAs);
    if (HasAnchor(contents.File))
        return FromDump(contents.File, readAs);
    return AsItIs(std::move(contents.File), readAs);
}

} // namespace SmbiosTree
