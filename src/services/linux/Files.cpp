#include "services/Files.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Protocol::SMBIOS::Files {

namespace {

constexpr mode_t ReadableByAll = 0666; // less what the process masks out

// The stream of `descriptor`, which it closes; null, with the descriptor closed, where `error` is not 0.
File Stream(int descriptor, const char* mode, int error)
{
    File file(error == 0 ? fdopen(descriptor, mode) : nullptr);
    if (file == nullptr) {
        error = error != 0 ? error : errno;
        close(descriptor);
        errno = error;
    }
    return file;
}

int ErrorUnlessRegular(int descriptor)
{
    struct stat status = {};
    if (fstat(descriptor, &status) != 0)
        return errno;
    if (S_ISDIR(status.st_mode))
        return EISDIR;
    return S_ISREG(status.st_mode) ? 0 : EINVAL;
}

} // namespace

File Open(const std::filesystem::path& path)
{
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0)
        return nullptr;
    return Stream(descriptor, "rb", ErrorUnlessRegular(descriptor));
}

File Create(const std::filesystem::path& path)
{
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, ReadableByAll);
    if (descriptor < 0)
        return nullptr;
    File file = Stream(descriptor, "wb", 0);
    if (file == nullptr)
        Discard(path);
    return file;
}

} // namespace Protocol::SMBIOS::Files
