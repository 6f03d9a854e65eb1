// Physical memory through the kernel's memory device, read-only, and copied: nothing stays mapped.
//
// Kernels keep the device from containers, from users without rights, and under lockdown from everyone. Where
// the kernel publishes the firmware's tables instead, the range that is searched for the entry point reads as
// erased ROM: it then holds none, and the table is read from what the kernel publishes. The same on
// processors other than x86, which have no BIOS segment.

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
#include <vector>

namespace OS::Driver {

namespace {

constexpr const char* MemoryDevice = "/dev/mem";
constexpr const char* PublishedFiles[] = {"/sys/firmware/dmi/tables/smbios_entry_point",
                                          "/sys/firmware/dmi/tables/DMI"};
constexpr unsigned char ErasedRom = 0xFF;

#if defined(__x86_64__) || defined(__i386__)
constexpr bool IsX86 = true;
#else
constexpr bool IsX86 = false;
#endif

// The memory device, open for reading.
class MemoryFile {
public:
    MemoryFile() : Descriptor(open(MemoryDevice, O_RDONLY | O_CLOEXEC)), Error(Check()) {}
    ~MemoryFile()
    {
        if (Descriptor >= 0)
            close(Descriptor);
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    const int Descriptor;
    const int Error; ///< 0, or the system's error: there is no such device for this process

private:
    int Check() const
    {
        struct stat status = {};
        if (Descriptor < 0 || fstat(Descriptor, &status) != 0)
            return errno;
        return S_ISCHR(status.st_mode) ? 0 : ENODEV;
    }
};

// A range of physical memory, mapped where the kernel allows it: a mapping reaches every address. Processors
// other than x86 end a process that looks through one where there is no memory, so there it is only read.
class Range {
public:
    Range(std::uint64_t address, unsigned int length) : Address(address), Length(length)
    {
        if (Device.Error == 0 && IsX86)
            Map();
    }
    ~Range()
    {
        if (IsMapped())
            munmap(Pages, InPage + Length);
    }
    Range(const Range&) = delete;
    Range& operator=(const Range&) = delete;

    bool IsMapped() const { return Pages != MAP_FAILED; }

    // Gives 0 or the system's error.
    int CopyTo(unsigned char* target) const
    {
        if (Device.Error != 0)
            return Device.Error;
        if (!IsMapped())
            return ReadTo(target);
        std::memcpy(target, static_cast<const unsigned char*>(Pages) + InPage, Length);
        return 0;
    }

private:
    void Map()
    {
        Pages = mmap(nullptr, InPage + Length, PROT_READ, MAP_SHARED, Device.Descriptor,
                     static_cast<off_t>(Address - InPage));
        if (!IsMapped())
            MappingError = errno;
    }

    // Some kernels allow to read where they refuse to map.
    int ReadTo(unsigned char* target) const
    {
        for (std::size_t done = 0; done < Length;) {
            const ssize_t count =
                pread(Device.Descriptor, target + done, Length - done, static_cast<off_t>(Address + done));
            if (count > 0)
                done += static_cast<std::size_t>(count);
            else if (count == 0 || errno == EFAULT)
                return MappingError; // reading ends where the memory does
            else if (errno != EINTR)
                return errno;
        }
        return 0;
    }

    const MemoryFile Device;
    const std::uint64_t Address;
    const std::size_t Length;
    const std::size_t InPage = Address % static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void* Pages = MAP_FAILED;
    int MappingError = EFAULT; // where it was not tried
};

// 0 where CopyTo would succeed, or its error. A range that can be mapped is not looked at.
int Probe(std::uint64_t address, unsigned int length)
{
    const Range range(address, length);
    if (range.IsMapped())
        return 0;
    std::vector<unsigned char> unused(length);
    return range.CopyTo(unused.data());
}

bool IsKeptAway(int error)
{
    return error == ENOENT || error == ENODEV || error == ENXIO || error == EACCES || error == EPERM ||
           (!IsX86 && error == EFAULT);
}

bool IsScan(std::uint64_t address, unsigned int length)
{
    return address == ScanAddress && length == ScanLength;
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
        if (!IsScan(address, length))
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

// Gives 0 once the bytes of the range stand at `target`, or the system's error.
int Read(std::uint64_t address, unsigned int length, unsigned char* target)
{
    if (length == 0)
        return 0;
    const bool isScan = IsScan(address, length);
    const int error = isScan && !IsX86 ? ENODEV : Range(address, length).CopyTo(target);
    if (!isScan || !IsKeptAway(error) || (IsX86 && !IsPublished(R_OK)))
        return error;
    std::fill_n(target, length, ErasedRom);
    return 0;
}

} // namespace

void MemMapDriverImpl::Map(unsigned long address, unsigned int length, MappingOwner* out)
{
    auto bytes = std::make_unique<unsigned char[]>(length);
    const int error = Read(address, length, bytes.get());
    if (error != 0)
        Raise(address, length, error);
    MappingOwner image(new UnmapDeleter(bytes.get(), length));
    bytes.release();
    *out = image;
}

bool MemMapDriverImpl::Offers(unsigned long address, unsigned int length, std::string& reason)
{
    if (length == 0 || IsScan(address, length))
        return true;
    const int error = Probe(address, length);
    if (!IsKeptAway(error))
        return true;
    reason = std::string(MemoryDevice) + ": " + std::strerror(error);
    return false;
}

} // namespace OS::Driver
