// Physical memory through the kernel's memory device, read-only, and copied: nothing stays mapped.
//
// Kernels keep the device from containers, from users without rights, and under lockdown from everyone. Where
// the kernel publishes the firmware's tables instead, the BIOS segment reads as erased ROM: it then holds no
// entry point, and the table is read from what the kernel publishes.

#include "services/MemMapDriverImpl.h"

#include "SMBIOSProtocol/ResultStatus.h"

#include <algorithm>
#include <cerrno>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <iterator>
#include <memory>
#include <string>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace OS::Driver {

namespace {

constexpr const char* MemoryDevice = "/dev/mem";
constexpr const char* PublishedFiles[] = {"/sys/firmware/dmi/tables/smbios_entry_point",
                                          "/sys/firmware/dmi/tables/DMI"};
constexpr std::uint64_t SegmentStart = 0xF0000;
constexpr std::uint64_t SegmentEnd = 0x100000;
constexpr unsigned char ErasedRom = 0xFF;

class File {
public:
    explicit File(const char* path) : Descriptor(open(path, O_RDONLY | O_CLOEXEC)) {}
    ~File()
    {
        if (Descriptor >= 0)
            close(Descriptor);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    const int Descriptor; ///< -1 where the file cannot be opened
};

// Copies through a mapping, which reaches every address. Gives 0 or the system's error.
int CopyMapped(int device, std::uint64_t address, unsigned int length, unsigned char* target)
{
    const auto pageSize = static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
    const std::uint64_t inPage = address % pageSize;
    void* const pages =
        mmap(nullptr, inPage + length, PROT_READ, MAP_SHARED, device, static_cast<off_t>(address - inPage));
    if (pages == MAP_FAILED)
        return errno;
    std::memcpy(target, static_cast<const unsigned char*>(pages) + inPage, length);
    munmap(pages, inPage + length);
    return 0;
}

// Copies by reading, which some kernels allow where they refuse to map. Gives 0 or the system's error.
int CopyRead(int device, std::uint64_t address, unsigned int length, unsigned char* target)
{
    while (length != 0) {
        const ssize_t count = pread(device, target, length, static_cast<off_t>(address));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno;
        if (count == 0)
            return EFAULT;
        address += static_cast<std::uint64_t>(count);
        target += count;
        length -= static_cast<unsigned int>(count);
    }
    return 0;
}

int Copy(std::uint64_t address, unsigned int length, unsigned char* target)
{
    const File device(MemoryDevice);
    if (device.Descriptor < 0)
        return errno;
    struct stat status = {};
    if (fstat(device.Descriptor, &status) != 0)
        return errno;
    if (!S_ISCHR(status.st_mode))
        return ENODEV;
    if (length == 0 || CopyMapped(device.Descriptor, address, length, target) == 0)
        return 0;
    return CopyRead(device.Descriptor, address, length, target);
}

bool IsKeptAway(int error)
{
    return error == ENOENT || error == ENODEV || error == ENXIO || error == EACCES || error == EPERM;
}

bool IsPublished()
{
    return std::all_of(std::begin(PublishedFiles), std::end(PublishedFiles),
                       [](const char* path) { return access(path, R_OK) == 0; });
}

[[noreturn]] void Raise(std::uint64_t address, unsigned int length, int error)
{
    char range[64];
    std::snprintf(range, sizeof range, "%u bytes of physical memory at %" PRIX64 "h", length, address);
    const std::string what =
        std::string("Cannot read ") + range + " through " + MemoryDevice + ": " + std::strerror(error) + ". ";
    switch (error) {
    case EACCES:
        throw ResultStatus(RESULT_MAPPING_DENIED, what + "Run as root.", "", XCOMMAND_NONE);
    case EPERM:
        throw ResultStatus(RESULT_MAPPING_DENIED,
                           what +
                               "The kernel refuses it: it is locked down (secure boot), keeps this range to "
                               "itself, or the process lacks the capability CAP_SYS_RAWIO.",
                           "", XCOMMAND_NONE);
    case ENOENT:
    case ENODEV:
    case ENXIO:
        throw ResultStatus(
            RESULT_MAPPING_UNAVAILABLE,
            what + "There is no memory device here, as in a container: run on the machine itself, "
                   "as root, or give the container /dev/mem or /sys/firmware/dmi.",
            "", XCOMMAND_NONE);
    default:
        throw ResultStatus(RESULT_MAPPING_FAILED, what + "The firmware may have given a wrong address.", "",
                           XCOMMAND_NONE);
    }
}

} // namespace

void MemMapDriverImpl::Map(unsigned long address, unsigned int length, MappingOwner* out)
{
    auto bytes = std::make_unique<unsigned char[]>(length);
    const int error = Copy(address, length, bytes.get());
    if (error != 0) {
        const bool isSegment = address >= SegmentStart && address + length <= SegmentEnd;
        if (!isSegment || !IsKeptAway(error) || !IsPublished())
            Raise(address, length, error);
        std::fill_n(bytes.get(), length, ErasedRom);
    }
    MappingOwner image(new UnmapDeleter(bytes.get(), length));
    bytes.release();
    *out = image;
}

} // namespace OS::Driver
