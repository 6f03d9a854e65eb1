// From bytes to a table. A dump, whose table stands at a fixed offset:
//
//   offset  field
//   00h     entry point, 32- or 64-bit form
//   20h     structure table
//
// An image, whose entry point stands anywhere behind the table:
//
//   offset  field
//   00h     structure table
//           32-bit entry point; what follows it is not looked at

#include "SMBIOSProtocol/TableImage.h"

#include "SMBIOSProtocol/ResultStatus.h"
#include "acquisition/EntryPoint.h"
#include "services/Failure.h"
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

// Cuts off the bytes that do not belong to the table. Returns whether the rest is known to be whole.
bool Trim(Bytes& table, const EntryPoint::Facts& facts)
{
    // The table of the running machine has been read up to MaxTableSize.
    const bool isShort = table.size() < std::min(facts.TableLength, TableImage::MaxTableSize);
    table.resize(std::min(table.size(), facts.TableLength));
    if (facts.IsLengthExact && !isShort)
        return true;
    const Extent extent = ExtentOf(table);
    if (isShort && extent.Size == 0)
        RaiseCutOff(table, facts);
    // The length in a 64-bit entry point is an upper bound: the table ends with its last structure.
    if (extent.Size != 0 && !facts.IsLengthExact)
        table.resize(extent.Size);
    return extent.HasEnd;
}

// A short length byte leaves no version under the checksum, and a text with "_SM_" in it easily looks like
// such an entry point. Its version tells them apart.
bool IsPlausible(const unsigned char* entryPoint, std::size_t size)
{
    if (!EntryPoint::IsComplete(entryPoint, size) || !EntryPoint::ChecksumHolds(entryPoint))
        return false;
    const unsigned char major = entryPoint[EntryPoint::MajorVersionOffset];
    const unsigned char minor = entryPoint[EntryPoint::MinorVersionOffset];
    return entryPoint[EntryPoint::LengthOffset] >= EntryPoint::SizeWithVersion ||
           ((major == 2 || major == 3) && minor <= 9);
}

// The offset of the image's entry point: the first that looks like one, else the first of all.
std::size_t FindEntryPoint(const Bytes& image)
{
    const std::size_t end = std::min(image.size(), TableImage::MaxTableSize + EntryPoint::AnchorSize);
    const std::size_t first = EntryPoint::FindAnchor(image.data(), end);
    for (std::size_t offset = first; offset < end;
         offset = EntryPoint::FindAnchor(image.data(), end, offset + 1)) {
        if (IsPlausible(image.data() + offset, image.size() - offset))
            return offset;
    }
    if (first == end && end < image.size())
        RaiseImageTooLarge(image.size(), TableImage::MaxTableSize);
    if (!EntryPoint::IsComplete(image.data() + first, image.size() - first))
        RaiseFailure(RESULT_NO_TABLE, "no complete 32-bit entry point (\"_SM_\") in it; give a table with "
                                      "one behind it, a dump that begins with one, or the folder that holds "
                                      "smbios_entry_point and DMI");
    if (!EntryPoint::ChecksumHolds(image.data() + first))
        RaiseFailure(RESULT_BAD_CHECKSUM, "the checksum of the entry point is wrong; take the table again");
    return first;
}

} // namespace

TableImage::TableImage(Bytes structures, Bytes behind, unsigned char major, unsigned char minor)
    : Structures(std::move(structures)), Behind(std::move(behind)), MajorVersion(major), MinorVersion(minor)
{
}

TableImage TableImage::FromBytes(Bytes bytes)
{
    if (bytes.empty())
        RaiseFailure(RESULT_EMPTY, "it is empty; take the table again");
    if (!EntryPoint::HasEitherAnchor(bytes.data(), bytes.size()))
        return FromImage(std::move(bytes));
    const auto table =
        bytes.begin() + static_cast<std::ptrdiff_t>(std::min(EntryPoint::TableOffset, bytes.size()));
    return FromParts(bytes, {table, bytes.end()});
}

TableImage TableImage::FromImage(Bytes image)
{
    const auto entryPoint = image.begin() + static_cast<std::ptrdiff_t>(FindEntryPoint(image));
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
    const bool isWhole = Trim(table, facts);
    if (table.empty())
        RaiseFailure(RESULT_EMPTY, "the entry point gives its table no length; take the dump again");
    TableImage image = FromTable(std::move(table), facts.Version.Major, facts.Version.Minor);
    image.Whole = isWhole;
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

bool TableImage::IsWhole() const noexcept
{
    return Whole;
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
    if (!Behind.empty()) // as it is once the image was moved from
        EntryPoint::RewriteVersion(image.Behind, {image.MajorVersion, image.MinorVersion});
    return image;
}

// The bytes that are read by version, where fields of a last structure reach into what stands behind the
// table.
TableImage::Bytes TableImage::TableByVersion() const
{
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
