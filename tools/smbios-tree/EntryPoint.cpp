#include "EntryPoint.h"

#include "Failure.h"

#include <algorithm>
#include <numeric>
#include <string_view>

namespace SmbiosTree {

namespace {

struct Form {
    std::string_view Anchor;
    std::size_t Checksum;
    std::size_t Length;
    std::size_t Version;
    std::size_t TableLength;
    std::size_t TableLengthWidth;
    std::size_t Size; ///< of the whole entry point
};

constexpr Form Form32{"_SM_", 0x04, 0x05, 0x06, 0x16, 2, 0x1F};
constexpr Form Form64{"_SM3_", 0x05, 0x06, 0x07, 0x0C, 4, 0x18};

// Up to the end of the version, all that the library reads of a 32-bit entry point.
constexpr std::size_t SizeWithVersion = 0x08;

bool StartsWith(const Bytes& bytes, std::string_view anchor)
{
    return bytes.size() >= anchor.size() && std::equal(anchor.begin(), anchor.end(), bytes.begin());
}

const Form* FormOf(const Bytes& bytes)
{
    for (const Form* form : {&Form32, &Form64}) {
        if (StartsWith(bytes, form->Anchor))
            return form;
    }
    return nullptr;
}

unsigned char Sum(const unsigned char* first, std::size_t count)
{
    return static_cast<unsigned char>(std::accumulate(first, first + count, 0U));
}

} // namespace

bool HasAnchor(const Bytes& bytes)
{
    return FormOf(bytes) != nullptr;
}

EntryPoint ReadEntryPoint(const Bytes& bytes)
{
    const Form* const form = FormOf(bytes);
    if (form == nullptr)
        throw Failure(Kind::NoEntryPoint,
                      "the entry point begins with neither \"_SM_\" nor \"_SM3_\"; take it "
                      "again from the machine");
    // Some firmware counts one byte too few.
    if (bytes.size() + 1 < form->Size || bytes.size() < bytes[form->Length])
        throw Failure(Kind::Truncated, "it ends within the entry point; take the dump again");
    if (bytes[form->Length] + 1U < form->Size || Sum(bytes.data(), bytes[form->Length]) != 0)
        throw Failure(Kind::Damaged, "the checksum of the entry point is wrong; take the dump again");

    EntryPoint entryPoint;
    entryPoint.Version = {bytes[form->Version], bytes[form->Version + 1]};
    for (std::size_t i = form->TableLengthWidth; i-- > 0;)
        entryPoint.TableLength = entryPoint.TableLength << 8 | bytes[form->TableLength + i];
    entryPoint.IsLengthExact = form == &Form32;
    return entryPoint;
}

Bytes MakeEntryPoint(Version version)
{
    Bytes bytes{'_', 'S', 'M', '_', 0, SizeWithVersion, version.Major, version.Minor};
    bytes[Form32.Checksum] = static_cast<unsigned char>(0U - Sum(bytes.data(), bytes.size()));
    return bytes;
}

std::size_t FindAnchor(const Bytes& image)
{
    const auto anchor = std::search(image.begin(), image.end(), Form32.Anchor.begin(), Form32.Anchor.end());
    return static_cast<std::size_t>(anchor - image.begin());
}

Version VersionAt(const Bytes& image, std::size_t offset)
{
    if (image.size() < offset + SizeWithVersion)
        return {};
    return {image[offset + Form32.Version], image[offset + Form32.Version + 1]};
}

void RewriteVersion(Bytes& image, std::size_t offset, Version version)
{
    if (image.size() < offset + SizeWithVersion)
        return;
    unsigned char* const entryPoint = image.data() + offset;
    const std::size_t length = entryPoint[Form32.Length];
    if (image.size() < offset + length || Sum(entryPoint, length) != 0)
        return;
    entryPoint[Form32.Version] = version.Major;
    entryPoint[Form32.Version + 1] = version.Minor;
    if (length > Form32.Checksum)
        entryPoint[Form32.Checksum] =
            static_cast<unsigned char>(entryPoint[Form32.Checksum] - Sum(entryPoint, length));
}

} // namespace SmbiosTree
