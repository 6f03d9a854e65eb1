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
    if (length == 0)
        return 0;
    const int mapping = CopyMapped(device.Descriptor, address, length, target);
    if (mapping == 0)
        return 0;
    const int reading = CopyRead(device.Descriptor, address, length, target);
    return reading == EFAULT ? mapping : reading; // reading ends where the memory does
}

bool IsKeptAway(int error)
{
    return error == ENOENT || error == ENODEV || error == ENXIO || error == EACCES || error == EPERM;
}

bool IsSegment(std::uint64_t address, unsigned int length)
{
    return address >= SegmentStart && address <= SegmentEnd && length <= SegmentEnd - address;
}

// Whether both published files are there, and as far as `mode` says open to this process.
bool IsPublished(int mode)
{
    return std::all_of(std::begin(PublishedFiles), std::end(PublishedFiles),
                       [mode](const char* path) { return faccessat(AT_FDCWD, path, mode, AT_EACCESS) == 0; });
}

struct Refusal {
    ResultCode Code;
    const char* Advice;
};

Refusal RefusalFor(std::uint64_t address, unsigned int length, int error)
{
    switch (error) {
    case EACCES:
        return {RESULT_MAPPING_DENIED,
                geteuid() == 0 ? "A policy of the system keeps it from root, too." : "Run as root."};
    case EPERM:
        return {RESULT_MAPPING_DENIED,
                "The kernel refuses it: it is locked down (secure boot), keeps this range to itself, or the "
                "process lacks the capability CAP_SYS_RAWIO."};
    case ENOENT:
    case ENODEV:
    case ENXIO:
        if (!IsSegment(address, length))
            return {RESULT_MAPPING_UNAVAILABLE,
                    "There is no memory device here, as in a container: run on the machine itself, as root, "
                    "or give the container /dev/mem."};
        if (IsPublished(F_OK))
            return {RESULT_MAPPING_DENIED,
                    "There is no memory device here. The kernel publishes the tables under "
                    "/sys/firmware/dmi, to root alone: run as root."};
        return {RESULT_MAPPING_UNAVAILABLE,
                "There is no memory device here, as in a container: run on the machine itself, as root, or "
                "give the container /dev/mem or /sys/firmware/dmi."};
    case EFAULT:
    case EINVAL:
        return {RESULT_MAPPING_FAILED, "The firmware may have given a wrong address."};
    default:
        return {RESULT_MAPPING_FAILED, "The kernel's log may say more."};
    }
}

[[noreturn]] void Raise(std::uint64_t address, unsigned int length, int error)
{
    char range[64];
    std::snprintf(range, sizeof range, "%u bytes of physical memory at %" PRIX64 "h", length, address);
    const Refusal refusal = RefusalFor(address, length, error);
    throw ResultStatus(refusal.Code,
                       std::string("Cannot read ") + range + " through " + MemoryDevice + ": " +
                           std::strerror(error) + ". " + refusal.Advice,
                       "", XCOMMAND_NONE);
}

} // namespace

void MemMapDriverImpl::Map(unsigned long address, unsigned int length, MappingOwner* out)
{
    auto bytes = std::make_unique<unsigned char[]>(length);
    const int error = Copy(address, length, bytes.get());
    if (error != 0) {
        if (!IsSegment(address, length) || !IsKeptAway(error) || !IsPublished(R_OK))
            Raise(address, length, error);
        std::fill_n(bytes.get(), length, ErasedRom);
    }
    MappingOwner image(new UnmapDeleter(bytes.get(), length));
    bytes.release();
    *out = image;
}

} // namespace OS::Driver
