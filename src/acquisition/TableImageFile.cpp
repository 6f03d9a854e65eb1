// From files and folders to a table, and from a table to a dump.

#include "SMBIOSProtocol/ResultStatus.h"
#include "SMBIOSProtocol/TableImage.h"
#include "acquisition/EntryPoint.h"
#include "services/Failure.h"
#include "services/Files.h"
#include "structures/Walk.h"

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

namespace Protocol::SMBIOS {

namespace {

namespace fs = std::filesystem;
using Bytes = EntryPoint::Bytes;

// The names under which Linux publishes the two in /sys/firmware/dmi/tables.
constexpr const char* EntryPointFile = "smbios_entry_point";
constexpr const char* TableFile = "DMI";

using EntryPoint::TableOffset;
constexpr std::size_t MaxSize32 = 0xFFFF;

bool IsDenied(int error)
{
    return error == EACCES || error == EPERM;
}

std::string ReasonOf(int error)
{
    return std::generic_category().message(error);
}

// `what` stands in front of each message: empty, or the file of a folder.
[[noreturn]] void RaiseUnreadable(const std::string& what, int error)
{
    const bool isMissing = error == ENOENT || error == ENOTDIR;
    const std::string reason = error == EINVAL ? "it is neither a file nor a folder"
                               : error != 0    ? ReasonOf(error)
                                               : "it cannot be read";
    const char* const advice = IsDenied(error)
                                   ? "run as root (administrator), or give a copy that you may read"
                               : error == ENOENT ? "check the name"
                                                 : "give a file or folder that can be read";
    RaiseFailure(!isMissing     ? RESULT_FILE_UNREADABLE
                 : what.empty() ? RESULT_FILE_MISSING
                                : RESULT_FOLDER_INCOMPLETE,
                 what + reason + "; " + advice);
}

Bytes ReadFile(const fs::path& path, const std::string& what)
{
    errno = 0;
    const Files::File file = Files::Open(path);
    if (file == nullptr)
        RaiseUnreadable(what, errno);
    Bytes bytes;
    unsigned char buffer[16384];
    errno = 0;
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, file.get())) {
        bytes.insert(bytes.end(), buffer, buffer + count);
        if (bytes.size() > TableImage::MaxFileSize)
            RaiseFailure(RESULT_TOO_LARGE, what + "more than 16 MiB; give a table image, a dump or a folder");
    }
    if (std::ferror(file.get()) != 0)
        RaiseUnreadable(what, errno);
    if (bytes.empty())
        RaiseFailure(RESULT_EMPTY, what + "it is empty; take the table again");
    return bytes;
}

void RaiseIfIncomplete(const fs::path& folder)
{
    std::error_code error;
    if (!fs::exists(folder / EntryPointFile, error) && !error)
        RaiseFailure(RESULT_FOLDER_INCOMPLETE,
                     "a folder without the files smbios_entry_point and DMI; give a folder like "
                     "/sys/firmware/dmi/tables, or a file");
}

EntryPoint::Version VersionOfDump(const TableImage& image)
{
    if (image.Major() == 0 && image.Minor() == 0)
        return {3, 0}; // whose entry point is of the 64-bit form
    return {static_cast<unsigned char>(image.Major()), static_cast<unsigned char>(image.Minor())};
}

// A 64-bit entry point does not say where its table ends: whoever reads it ends at the end structure.
bool NeedsForm64(const Bytes& table, EntryPoint::Version version, const TableExtent& extent)
{
    if (table.size() > MaxSize32)
        return true;
    return version.Major >= 3 && (extent.Size == table.size() || extent.IsDamaged());
}

Bytes DumpOf(const TableImage& image)
{
    const Bytes& table = image.Table();
    const TableExtent extent = ExtentOf(table, WalkToMeasure);
    const EntryPoint::Version version = VersionOfDump(image);
    Bytes dump = NeedsForm64(table, version, extent)
                     ? EntryPoint::Whole64(version, TableOffset, table.size())
                     : EntryPoint::Whole32(version, TableOffset, table.size(), extent.LargestStructure,
                                           extent.StructureCount);
    dump.resize(TableOffset);
    dump.insert(dump.end(), table.begin(), table.end());
    return dump;
}

[[noreturn]] void RaiseNotWritten(int error)
{
    if (error == EEXIST)
        RaiseFailure(RESULT_FILE_EXISTS, "the file exists already; give the name of a new one");
    const char* const advice = IsDenied(error)                       ? "choose a folder that you may write to"
                               : error == ENOENT || error == ENOTDIR ? "check the name of the folder"
                                                                     : "make room, or choose another place";
    RaiseFailure(RESULT_NOT_WRITTEN,
                 (error != 0 ? ReasonOf(error) : std::string("it cannot be written")) + "; " + advice);
}

// Gives 0 or the system's error. A full disk may show only when the last bytes leave the buffer.
int Write(Files::File file, const Bytes& bytes)
{
    errno = 0;
    const bool isWritten = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
                           std::fflush(file.get()) == 0;
    const int error = isWritten ? 0 : errno != 0 ? errno : EIO;
    const bool isClosed = std::fclose(file.release()) == 0;
    return error != 0 || isClosed ? error : EIO;
}

} // namespace

TableImage TableImage::FromFile(const fs::path& file)
{
    std::error_code error;
    if (!fs::is_directory(file, error))
        return FromBytes(ReadFile(file, ""));
    RaiseIfIncomplete(file);
    const Bytes entryPoint = ReadFile(file / EntryPointFile, std::string(EntryPointFile) + ": ");
    return FromParts(entryPoint, ReadFile(file / TableFile, std::string(TableFile) + ": "));
}

void TableImage::Save(const fs::path& file) const
{
    const Bytes dump = DumpOf(*this);
    errno = 0;
    Files::File target = Files::Create(file);
    if (target == nullptr)
        RaiseNotWritten(errno);
    const int error = Write(std::move(target), dump);
    if (error == 0)
        return;
    Files::Discard(file);
    RaiseNotWritten(error);
}

} // namespace Protocol::SMBIOS
