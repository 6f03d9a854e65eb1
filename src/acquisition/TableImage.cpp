// From bytes to a table. What the bytes hold tells their form, in this order:
//
//   dump         an entry point of either form at 00h, the table at 20h
//   block        of Windows (services/FirmwareTable.h): 8 bytes with version and length, the table at 08h
//   image        the table at 00h, a 32-bit entry point anywhere behind it. By version the fields of a last
//                structure may reach into it and what follows it
//   bare table   two whole structures at least from 00h on, up to an end structure or to the last byte; or
//                an end structure alone

#include "SMBIOSProtocol/TableImage.h"

#include "SMBIOSProtocol/ResultStatus.h"
#include "acquisition/EntryPoint.h"
#include "services/Failure.h"
#include "services/FirmwareTable.h"
#include "structures/LittleEndian.h"
#include "structures/Walk.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

namespace Protocol::SMBIOS {

namespace {

using Bytes = EntryPoint::Bytes;

constexpr std::size_t MaxSizeByVersion = std::numeric_limits<unsigned short>::max();

[[noreturn]] void RaiseTableTooLarge(std::size_t size, std::size_t most)
{
    RaiseFailure(RESULT_TOO_LARGE, "a table of " + std::to_string(size) + " bytes; at most " +
                                       std::to_string(most) +
                                       " can be read: cut it behind a structure and end it with type 127");
}

[[noreturn]] void RaiseImageTooLarge(std::size_t size, std::size_t most)
{
    RaiseFailure(RESULT_TOO_LARGE, "an image of " + std::to_string(size) + " bytes; at most " +
                                       std::to_string(most) +
                                       " can be read: cut off what is neither table nor entry point");
}

EntryPoint::Facts ReadEntryPoint(const Bytes& bytes)
{
    EntryPoint::Facts facts;
    switch (EntryPoint::Read(bytes.data(), bytes.size(), facts)) {
    case EntryPoint::Fault::NoAnchor:
        RaiseFailure(RESULT_NO_TABLE, "the entry point begins with neither \"_SM_\" nor \"_SM3_\"; take it "
                                      "again from the machine");
    case EntryPoint::Fault::CutOff:
        RaiseFailure(RESULT_CUT_OFF, "it ends within the entry point; take the dump again");
    case EntryPoint::Fault::Damaged:
        RaiseFailure(RESULT_BAD_CHECKSUM, "the checksum of the entry point is wrong; take the dump again");
    case EntryPoint::Fault::None:
        break;
    }
    return facts;
}

[[noreturn]] void RaiseCutOff(const Bytes& table, const EntryPoint::Facts& facts)
{
    RaiseFailure(RESULT_CUT_OFF, "the table is cut off after " + std::to_string(table.size()) + " of " +
                                     std::to_string(facts.TableLength) + " bytes; take the dump again");
}

// Cuts off the bytes that do not belong to the table. Returns whether the entry point's length is that of the
// table.
bool Trim(Bytes& table, const EntryPoint::Facts& facts)
{
    // The table of the running machine has been read up to MaxTableSize.
    const bool isShort = table.size() < std::min(facts.TableLength, TableImage::MaxTableSize);
    table.resize(std::min(table.size(), facts.TableLength));
    if (facts.IsLengthExact && !isShort)
        return true;
    const TableExtent extent = ExtentOf(table, WalkToMeasure);
    if (isShort && extent.IsDamaged())
        RaiseCutOff(table, facts);
    // The length in a 64-bit entry point is an upper bound: the table ends with its last structure.
    if (!extent.IsDamaged() && !facts.IsLengthExact)
        table.resize(extent.Size);
    return false;
}

// Whether the bytes are a block as Windows hands it out, with one whole structure at least. A table has a
// type and a length in the first two bytes: a structure of type 0 or 1 has 8 bytes at least, and no version
// is that large.
bool IsFirmwareBlock(const Bytes& bytes)
{
    constexpr unsigned char LargestCallingMethod = 1, LargestMajorVersion = 7;
    if (bytes.size() <= Firmware::TableOffset ||
        bytes[Firmware::CallingMethodOffset] > LargestCallingMethod ||
        bytes[Firmware::MajorVersionOffset] > LargestMajorVersion)
        return false;
    const auto length =
        static_cast<std::size_t>(LittleEndian(&bytes[Firmware::LengthOffset], Firmware::LengthWidth));
    if (length > bytes.size() - Firmware::TableOffset)
        return false;
    const auto table = bytes.begin() + static_cast<std::ptrdiff_t>(Firmware::TableOffset);
    return ExtentOf({table, table + static_cast<std::ptrdiff_t>(length)}, WalkWithNewest).StructureCount > 0;
}

// The checksum of an entry point whose length byte is less than 8 does not cover its version. A text with
// "_SM_" in it easily passes for such a one, so its version must be one that exists.
bool IsPlausible(const unsigned char* entryPoint, std::size_t size)
{
    if (!EntryPoint::IsComplete(entryPoint, size) || !EntryPoint::ChecksumHolds(entryPoint))
        return false;
    const unsigned char major = entryPoint[EntryPoint::MajorVersionOffset];
    const unsigned char minor = entryPoint[EntryPoint::MinorVersionOffset];
    return entryPoint[EntryPoint::LengthOffset] >= EntryPoint::SizeWithVersion ||
           ((major == 2 || major == 3) && minor <= 9);
}

// The end of the bytes in which an image's entry point is sought.
std::size_t EndOfSearch(const Bytes& image)
{
    return std::min(image.size(), TableImage::MaxTableSize + EntryPoint::AnchorSize);
}

// The offset of the first entry point that looks like one; the end of the search where there is none.
std::size_t FindEntryPoint(const Bytes& image)
{
    const std::size_t end = EndOfSearch(image);
    std::size_t offset = EntryPoint::FindAnchor(image.data(), end);
    while (offset < end && !IsPlausible(image.data() + offset, image.size() - offset))
        offset = EntryPoint::FindAnchor(image.data(), end, offset + 1);
    return offset;
}

// Whether whole structures stand from the first byte on, up to an end structure or to the last byte. One
// structure is too few to tell a table from a file of another kind, but for an end structure as it should be.
bool IsBareTable(const TableExtent& extent)
{
    constexpr std::size_t SizeOfEnd = HeaderSize + 2; // the two NULs behind it
    return !extent.IsDamaged() &&
           (extent.StructureCount >= 2 || (extent.End == TableEnd::EndStructure && extent.Size == SizeOfEnd));
}

// The offset of the first anchor, for an image that has none of the other forms. It is taken for the entry
// point, whatever version it names.
std::size_t FirstEntryPoint(const Bytes& image)
{
    const std::size_t end = EndOfSearch(image);
    const std::size_t first = EntryPoint::FindAnchor(image.data(), end);
    if (first == end && end < image.size())
        RaiseImageTooLarge(image.size(), TableImage::MaxTableSize);
    if (!EntryPoint::IsComplete(image.data() + first, image.size() - first))
        RaiseFailure(RESULT_NO_TABLE,
                     "it has none of the forms of a table: no complete entry point (\"_SM_\"), no block of "
                     "Windows, and no whole structures from its first byte on; take the table again, or give "
                     "the folder that holds smbios_entry_point and DMI");
    if (!EntryPoint::ChecksumHolds(image.data() + first))
        RaiseFailure(RESULT_BAD_CHECKSUM, "the checksum of the entry point is wrong; take the table again");
    return first;
}

} // namespace

TableImage::TableImage(Bytes structures, Bytes behind, unsigned char major, unsigned char minor)
    : Structures(std::move(structures)), Behind(std::move(behind)), MajorVersion(major), MinorVersion(minor),
      Reach(ExtentOf(Structures, WalkWithNewest))
{
}

TableImage TableImage::FromBytes(Bytes bytes)
{
    if (bytes.empty())
        RaiseFailure(RESULT_EMPTY, "it is empty; take the table again");
    if (EntryPoint::HasEitherAnchor(bytes.data(), bytes.size())) {
        const std::size_t table = std::min(EntryPoint::TableOffset, bytes.size());
        return FromParts(bytes, {bytes.begin() + static_cast<std::ptrdiff_t>(table), bytes.end()});
    }
    if (IsFirmwareBlock(bytes))
        return FromBlock(bytes);
    const std::size_t entryPoint = FindEntryPoint(bytes);
    if (entryPoint != EndOfSearch(bytes))
        return FromImage(std::move(bytes), entryPoint);
    const TableExtent extent = ExtentOf(bytes, WalkWithNewest);
    if (!IsBareTable(extent)) {
        const std::size_t first = FirstEntryPoint(bytes);
        return FromImage(std::move(bytes), first);
    }
    bytes.resize(extent.Size);
    TableImage table = FromTable(std::move(bytes), 0, 0);
    table.IsLengthKnown = false;
    return table;
}

// The length is the firmware's word: the table does not reach beyond the block. A block without room for its
// header has an empty table.
TableImage TableImage::FromBlock(const Bytes& block)
{
    const auto length =
        static_cast<std::size_t>(LittleEndian(&block[Firmware::LengthOffset], Firmware::LengthWidth));
    const auto table = block.begin() + static_cast<std::ptrdiff_t>(Firmware::TableOffset);
    const std::size_t size = std::min(length, block.size() - Firmware::TableOffset);
    TableImage image = FromTable({table, table + static_cast<std::ptrdiff_t>(size)},
                                 block[Firmware::MajorVersionOffset], block[Firmware::MinorVersionOffset]);
    image.IsLengthKnown = size == length;
    return image;
}

TableImage TableImage::FromImage(Bytes image, std::size_t offset)
{
    const auto entryPoint = image.begin() + static_cast<std::ptrdiff_t>(offset);
    Bytes behind(entryPoint, image.end());
    image.erase(entryPoint, image.end());
    const unsigned char major = behind[EntryPoint::MajorVersionOffset];
    const unsigned char minor = behind[EntryPoint::MinorVersionOffset];
    return {std::move(image), std::move(behind), major, minor};
}

TableImage TableImage::FromParts(const Bytes& entryPoint, Bytes table)
{
    const EntryPoint::Facts facts = ReadEntryPoint(entryPoint);
    if (table.empty())
        RaiseFailure(RESULT_CUT_OFF,
                     "it ends before the table, which begins at offset 32; take the dump again");
    const bool isLengthKnown = Trim(table, facts);
    if (table.empty())
        RaiseFailure(RESULT_EMPTY, "the entry point gives its table no length; take the dump again");
    TableImage image = FromTable(std::move(table), facts.Version.Major, facts.Version.Minor);
    image.IsLengthKnown = isLengthKnown;
    return image;
}

TableImage TableImage::FromTable(Bytes table, unsigned char major, unsigned char minor)
{
    if (table.size() > MaxTableSize)
        RaiseTableTooLarge(table.size(), MaxTableSize);
    return {std::move(table), EntryPoint::Shortest({major, minor}), major, minor};
}

int TableImage::Major() const noexcept
{
    return MajorVersion;
}

int TableImage::Minor() const noexcept
{
    return MinorVersion;
}

const std::vector<unsigned char>& TableImage::Table() const noexcept
{
    return Structures;
}

const TableExtent& TableImage::Extent() const noexcept
{
    return Reach;
}

bool TableImage::IsWhole() const noexcept
{
    return !Reach.IsDamaged() && (IsLengthKnown || Reach.End == TableEnd::EndStructure);
}

TableImage TableImage::As(int major, int minor) const
{
    constexpr int Most = std::numeric_limits<unsigned char>::max();
    if (major < 0 || major > Most || minor < 0 || minor > Most)
        RaiseFailure(RESULT_UNSUPPORTED_VERSION, "no entry point can have the version " +
                                                     std::to_string(major) + "." + std::to_string(minor) +
                                                     "; both numbers are 0 to 255");
    TableImage image = *this;
    image.MajorVersion = static_cast<unsigned char>(major);
    image.MinorVersion = static_cast<unsigned char>(minor);
    if (!Behind.empty()) // empty: this image was moved from
        EntryPoint::RewriteVersion(image.Behind, {image.MajorVersion, image.MinorVersion});
    return image;
}

// The bytes that are read by version, where fields of a last structure reach into what stands behind the
// table.
TableImage::Bytes TableImage::TableByVersion() const
{
    if (MajorVersion == 0 && MinorVersion == 0)
        RaiseFailure(
            RESULT_UNSUPPORTED_VERSION,
            "The table has no version, and so no catalogue by version. Give it one with TableImage::As, "
            "or read it with Reading::Newest.");
    const std::size_t size = Structures.size() + Behind.size();
    if (size > MaxSizeByVersion && Behind.size() == EntryPoint::SizeWithVersion)
        RaiseTableTooLarge(Structures.size(), MaxSizeByVersion - EntryPoint::SizeWithVersion);
    if (size > MaxSizeByVersion)
        RaiseImageTooLarge(size, MaxSizeByVersion);
    Bytes table;
    table.reserve(size);
    table.insert(table.end(), Structures.begin(), Structures.end());
    table.insert(table.end(), Behind.begin(), Behind.end());
    return table;
}

} // namespace Protocol::SMBIOS
