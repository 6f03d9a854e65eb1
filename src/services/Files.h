// Opens files. Both operations return null where they fail, with the reason in errno.

#pragma once

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

namespace Protocol::SMBIOS::Files {

struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

/// Opens a regular file for reading. Anything else, such as a pipe without a writer, is not waited for and
/// refused with EINVAL.
File Open(const std::filesystem::path& path);

/// Makes a file for writing; one that exists is refused with EEXIST.
File Create(const std::filesystem::path& path);

/// Removes a file that could not be written. Keeps errno.
inline void Discard(const std::filesystem::path& path)
{
    const int reason = errno;
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    errno = reason;
}

} // namespace Protocol::SMBIOS::Files
