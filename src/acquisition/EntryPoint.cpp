#include "acquisition/EntryPoint.h"

#include "structures/LittleEndian.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <string_view>

namespace Protocol::SMBIOS::EntryPoint {

namespace {

struct Form {
    std::string_view Anchor;
    std::size_t Checksum;
    std::size_t Length;
    std::size_t Version;
    std::size_t TableLength;
    std::size_t TableLengthWidth;
    std::size_t TableAddress;
    std::size_t TableAddressWidth;
    std::size_t Size; ///< of the whole entry point
};

constexpr Form Form32{"_SM_", 0x04, 0x05, 0x06, 0x16, 2, 0x18, 4, 0x1F};
constexpr Form Form64{"_SM3_", 0x05, 0x06, 0x07, 0x0C, 4, 0x10, 8, 0x18};

constexpr std::size_t LargestStructureOffset = 0x08;
constexpr std::size_t IntermediateOffset = 0x10;
constexpr std::string_view IntermediateAnchor = "_DMI_";
constexpr std::size_t IntermediateChecksumOffset = 0x15;
constexpr std::size_t StructureCountOffset = 0x1C;
constexpr std::size_t BcdVersionOffset = 0x1E;
constexpr std::size_t RevisionOffset64 = 0x0A;

std::string_view AsText(const unsigned char* bytes, std::size_t size)
{
    return {reinterpret_cast<const char*>(bytes), size};
}

const Form* FormOf(const unsigned char* bytes, std::size_t size)
{
    for (const Form* form : {&Form32, &Form64}) {
        if (AsText(bytes, size).substr(0, form->Anchor.size()) == form->Anchor)
            return form;
    }
    return nullptr;
}

unsigned char Sum(const unsigned char* first, std::size_t count)
{
    return static_cast<unsigned char>(std::accumulate(first, first + count, 0U));
}

// The number at `offset`; bytes behind the end count as 0.
std::uint64_t NumberAt(const unsigned char* bytes, std::size_t size, std::size_t offset, std::size_t width)
{
    return LittleEndian(bytes + offset, std::min(width, size - offset));
}

void PutLittleEndian(Bytes& bytes, std::size_t offset, std::size_t width, std::uint64_t value)
{
    for (std::size_t i = 0; i < width; ++i)
        bytes[offset + i] = static_cast<unsigned char>(value >> 8 * i);
}

// Sets the byte at `checksum` so that the bytes from `first` up to `end` sum to 0.
void Balance(Bytes& bytes, std::size_t first, std::size_t end, std::size_t checksum)
{
    bytes[checksum] = static_cast<unsigned char>(bytes[checksum] - Sum(bytes.data() + first, end - first));
}

// An entry point with the fields that both forms have, its checksum still to be set.
Bytes Begin(const Form& form, Version version, std::size_t tableAddress, std::size_t tableLength)
{
    Bytes bytes(form.Size);
    std::copy(form.Anchor.begin(), form.Anchor.end(), bytes.begin());
    bytes[form.Length] = static_cast<unsigned char>(form.Size);
    bytes[form.Version] = version.Major;
    bytes[form.Version + 1] = version.Minor;
    PutLittleEndian(bytes, form.TableLength, form.TableLengthWidth, tableLength);
    PutLittleEndian(bytes, form.TableAddress, form.TableAddressWidth, tableAddress);
    return bytes;
}

} // namespace

std::size_t FindAnchor(const unsigned char* bytes, std::size_t size, std::size_t start)
{
    while (start + AnchorSize <= size) {
        const void* const found =
            std::memchr(bytes + start, Form32.Anchor.front(), size - AnchorSize + 1 - start);
        if (found == nullptr)
            break;
        start = static_cast<std::size_t>(static_cast<const unsigned char*>(found) - bytes);
        if (AsText(bytes + start, AnchorSize) == Form32.Anchor)
            return start;
        ++start;
    }
    return size;
}

bool IsComplete(const unsigned char* entryPoint, std::size_t size)
{
    return size >= SizeWithVersion && size >= entryPoint[LengthOffset];
}

bool ChecksumHolds(const unsigned char* entryPoint)
{
    return Sum(entryPoint, entryPoint[LengthOffset]) == 0;
}

std::string VersionText(unsigned char major, unsigned char minor)
{
    return std::to_string(major) + "." + std::to_string(minor);
}

bool HasEitherAnchor(const unsigned char* bytes, std::size_t size)
{
    return FormOf(bytes, size) != nullptr;
}

Fault Read(const unsigned char* bytes, std::size_t size, Facts& facts)
{
    const Form* const form = FormOf(bytes, size);
    if (form == nullptr)
        return Fault::NoAnchor;
    // Some firmware counts one byte too few.
    if (size + 1 < form->Size || size < bytes[form->Length])
        return Fault::CutOff;
    if (bytes[form->Length] + 1U < form->Size || Sum(bytes, bytes[form->Length]) != 0)
        return Fault::Damaged;

    facts.Version = {bytes[form->Version], bytes[form->Version + 1]};
    facts.TableAddress = NumberAt(bytes, size, form->TableAddress, form->TableAddressWidth);
    facts.TableLength =
        static_cast<std::size_t>(NumberAt(bytes, size, form->TableLength, form->TableLengthWidth));
    facts.IsLengthExact = form == &Form32;
    return Fault::None;
}

void RewriteVersion(Bytes& bytes, Version version)
{
    const std::size_t length = bytes[LengthOffset];
    bytes[MajorVersionOffset] = version.Major;
    bytes[MinorVersionOffset] = version.Minor;
    if (length > Form32.Checksum)
        Balance(bytes, 0, length, Form32.Checksum);
}

Bytes Shortest(Version version)
{
    Bytes bytes{'_', 'S', 'M', '_', 0, SizeWithVersion, version.Major, version.Minor};
    Balance(bytes, 0, bytes.size(), Form32.Checksum);
    return bytes;
}

Bytes Whole32(Version version, std::size_t tableAddress, std::size_t tableLength,
              std::size_t largestStructure, std::size_t structureCount)
{
    Bytes bytes = Begin(Form32, version, tableAddress, tableLength);
    PutLittleEndian(bytes, LargestStructureOffset, 2, largestStructure);
    std::copy(IntermediateAnchor.begin(), IntermediateAnchor.end(), bytes.begin() + IntermediateOffset);
    PutLittleEndian(bytes, StructureCountOffset, 2, structureCount);
    bytes[BcdVersionOffset] =
        static_cast<unsigned char>((version.Major & 0xFU) << 4 | (version.Minor & 0xFU));
    Balance(bytes, IntermediateOffset, bytes.size(), IntermediateChecksumOffset);
    Balance(bytes, 0, bytes.size(), Form32.Checksum);
    return bytes;
}

Bytes Whole64(Version version, std::size_t tableAddress, std::size_t tableLength)
{
    Bytes bytes = Begin(Form64, version, tableAddress, tableLength);
    bytes[RevisionOffset64] = 1;
    Balance(bytes, 0, bytes.size(), Form64.Checksum);
    return bytes;
}

} // namespace Protocol::SMBIOS::EntryPoint
