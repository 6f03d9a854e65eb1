#include "Input.h"

#include "Failure.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>

namespace SmbiosTree {

namespace {

namespace fs = std::filesystem;

// The names under which Linux publishes the two in /sys/firmware/dmi/tables.
constexpr const char* EntryPointFile = "smbios_entry_point";
constexpr const char* TableFile = "DMI";

// No table comes near; what is larger is a disk or an endless device.
constexpr std::size_t MaxFileSize = 16U << 20;

[[noreturn]] void RaiseUnreadable(const std::string& what, int error)
{
    const std::string reason = error != 0 ? std::generic_category().message(error) : "it cannot be read";
    const char* const advice = error == EACCES || error == EPERM
                                   ? "run as root (administrator), or give a copy that you may read"
                               : error == ENOENT ? "check the name"
                                                 : "give a file or folder that can be read";
    throw Failure(Kind::Unreadable, what + reason + "; " + advice);
}

// `what` stands in front of each message: empty, or the file of a folder.
Bytes ReadAll(std::istream& stream, const std::string& what)
{
    Bytes bytes;
    char buffer[16384];
    do {
        errno = 0;
        stream.read(buffer, sizeof buffer);
        bytes.insert(bytes.end(), buffer, buffer + stream.gcount());
        if (bytes.size() > MaxFileSize)
            throw Failure(Kind::TooLarge, what + "more than 16 MiB; give a table image, a dump or a folder");
    } while (stream);
    if (stream.bad())
        RaiseUnreadable(what, errno);
    if (bytes.empty())
        throw Failure(Kind::Empty, what + "it is empty; take the table again");
    return bytes;
}

Bytes ReadFile(const fs::path& path, const std::string& what)
{
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
        RaiseUnreadable(what, errno);
    return ReadAll(stream, what);
}

Contents ReadFolder(const fs::path& folder)
{
    std::error_code error;
    if (!fs::exists(folder / EntryPointFile, error) && !error)
        throw Failure(Kind::Unreadable,
                      "a folder without the files smbios_entry_point and DMI; give a folder "
                      "like /sys/firmware/dmi/tables, or a file");
    Contents contents;
    contents.IsFolder = true;
    contents.EntryPoint = ReadFile(folder / EntryPointFile, std::string(EntryPointFile) + ": ");
    contents.Table = ReadFile(folder / TableFile, std::string(TableFile) + ": ");
    return contents;
}

} // namespace

Contents Read(const std::string& name)
{
    Contents contents;
    if (name == "-") {
        contents.File = ReadAll(std::cin, "");
        return contents;
    }
    const fs::path path = fs::u8path(name);
    std::error_code error;
    if (fs::is_directory(path, error))
        return ReadFolder(path);
    contents.File = ReadFile(path, "");
    return contents;
}

} // namespace SmbiosTree
