#include "services/Files.h"

#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

namespace Protocol::SMBIOS::Files {

namespace {

// The stream of `descriptor`, which it closes; null, with the descriptor closed, where `error` is not 0.
File Stream(int descriptor, const char* mode, int error)
{
    File file(error == 0 ? _fdopen(descriptor, mode) : nullptr);
    if (file == nullptr) {
        error = error != 0 ? error : errno;
        _close(descriptor);
        errno = error;
    }
    return file;
}

int ErrorUnlessRegular(int descriptor)
{
    struct _stat64 status = {};
    if (_fstat64(descriptor, &status) != 0)
        return errno;
    return (status.st_mode & _S_IFMT) == _S_IFREG ? 0 : EINVAL;
}

} // namespace

File Open(const std::filesystem::path& path)
{
    const int descriptor = _wopen(path.c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT);
    if (descriptor < 0)
        return nullptr;
    return Stream(descriptor, "rb", ErrorUnlessRegular(descriptor));
}

File Create(const std::filesystem::path& path)
{
    const int descriptor =
        _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
    if (descriptor < 0)
        return nullptr;
    // A device has its name everywhere, and none is new.
    const bool isNew = ErrorUnlessRegular(descriptor) == 0;
    File file = Stream(descriptor, "wb", isNew ? 0 : EEXIST);
    if (file == nullptr && isNew)
        Discard(path);
    return file;
}

} // namespace Protocol::SMBIOS::Files
