// Physical memory as the Linux kernel gives it: through a device that may be missing, may refuse, or may be
// read where it cannot be mapped. The linker sends the system calls here.

#include "SMBIOSProtocol/ResultStatus.h"
#include "services/MemMapDriverImpl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

using OS::Driver::ScanAddress;
using OS::Driver::ScanLength;

namespace {

#if defined(__x86_64__) || defined(__i386__)
constexpr bool IsX86 = true;
#else
constexpr bool IsX86 = false;
#endif

// What the kernel does: 0, or its error.
struct Kernel {
    int Open = 0, Map = 0, Read = 0;
    bool IsDevice = true; ///< else a file of another kind stands in its place
    bool Publishes = true;
};

Kernel kernel;
int opened = 0; // how often the device was
int mapped = 0; // ranges, less those given back

unsigned char ByteAt(unsigned long address)
{
    return static_cast<unsigned char>(address ^ address >> 8);
}

int Fails(int error)
{
    errno = error;
    return error == 0 ? 0 : -1;
}

} // namespace

extern "C" {
int __real_open(const char* path, int flags, ...);
void* __real_mmap(void*, std::size_t, int, int, int, off_t);
int __real_munmap(void*, std::size_t);

int __wrap_open(const char* path, int flags, ...)
{
    if (std::strcmp(path, "/dev/mem") != 0)
        return __real_open(path, flags);
    ++opened;
    return Fails(kernel.Open) == 0 ? __real_open(kernel.IsDevice ? "/dev/null" : "/proc/self/exe", flags)
                                   : -1;
}

void* __wrap_mmap(void* wish, std::size_t length, int protection, int flags, int file, off_t address)
{
    if (file == -1) // memory of the process itself
        return __real_mmap(wish, length, protection, flags, file, address);
    if (Fails(kernel.Map) != 0)
        return MAP_FAILED;
    ++mapped;
    void* const pages =
        __real_mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    for (std::size_t i = 0; i < length; ++i)
        static_cast<unsigned char*>(pages)[i] = ByteAt(static_cast<unsigned long>(address) + i);
    return pages;
}

int __wrap_munmap(void* start, std::size_t length)
{
    --mapped;
    return __real_munmap(start, length);
}

// At most 100 bytes at a time. The error comes with the second page, as a range may reach into one that is
// refused.
ssize_t __wrap_pread(int, void* target, std::size_t length, off_t address)
{
    if (kernel.Read != 0 && address % 4096 < 100)
        return Fails(kernel.Read);
    const std::size_t count =
        std::min<std::size_t>({length, 100, 4096 - static_cast<std::size_t>(address) % 4096});
    for (std::size_t i = 0; i < count; ++i)
        static_cast<unsigned char*>(target)[i] = ByteAt(static_cast<unsigned long>(address) + i);
    return static_cast<ssize_t>(count);
}

int __wrap_faccessat(int, const char*, int, int)
{
    return kernel.Publishes ? 0 : -1;
}
}

namespace {

std::string message; // of the last failure

// "memory", "erased", "memory and other bytes", or the code of the failure.
std::string Mapped(unsigned long address, unsigned int length)
{
    OS::Driver::MappingOwner owner;
    try {
        OS::Driver::MemMapDriverImpl().Map(address, length, &owner);
    } catch (const ResultStatus& failure) {
        message = failure.Message();
        return std::to_string(failure.Code());
    }
    if (owner->Length != length)
        return "another length";
    const auto* const bytes = static_cast<unsigned char*>(owner->Pointer);
    if (std::all_of(bytes, bytes + length, [](unsigned char byte) { return byte == 0xFF; }))
        return "erased";
    for (unsigned int i = 0; i < length; ++i) {
        if (bytes[i] != ByteAt(address + i))
            return "other bytes";
    }
    return "memory";
}

std::string Offered(unsigned long address, unsigned int length)
{
    std::string reason;
    return OS::Driver::MemMapDriverImpl().Offers(address, length, reason) ? "yes" : reason;
}

TEST(MemoryDevice, GivesARangeRefusesItOrIsNotThere)
{
    // Only an x86 has the segment that is searched, and may be mapped.
    const auto x86 = [](const char* here, const char* elsewhere) { return IsX86 ? here : elsewhere; };
    const std::string absent = "No such file or directory", bad = "Bad address";
    const std::string driverless = "No such device or address", forbidden = "Operation not permitted";
    const struct {
        const char* Name;
        Kernel Does;
        std::string Reason; ///< why it is not offered; empty: it is
        std::string Block;  ///< a range over two pages
        std::string Scan;   ///< the range that is searched for the entry point
    } rows[] = {
        {"all is allowed", {}, "", "memory", x86("memory", "erased")},
        {"none", {ENOENT}, absent, "2002", "erased"},
        {"none, nothing published", {ENOENT, 0, 0, true, false}, absent, "2002", x86("2002", "erased")},
        {"no driver", {ENXIO}, driverless, "2002", "erased"},
        {"another kind of file", {0, 0, 0, false}, "No such device", "2002", "erased"},
        {"no rights", {EACCES}, "Permission denied", "2001", "erased"},
        {"lockdown", {EPERM}, forbidden, "2001", "erased"},
        {"too many files open", {EMFILE}, "", "2003", x86("2003", "erased")},
        {"mapping refused, reading allowed", {0, EPERM}, "", "memory", x86("memory", "erased")},
        {"filtered", {0, EPERM, EPERM}, forbidden, "2001", "erased"},
        {"no memory to read", {0, EPERM, EFAULT}, IsX86 ? forbidden : bad, x86("2001", "2003"), "erased"},
        {"no such address", {0, EINVAL, EFAULT}, IsX86 ? "" : bad, "2003", x86("2003", "erased")},
    };
    for (const auto& row : rows) {
        kernel = row.Does;
        EXPECT_EQ(Offered(0xFFF, 300), row.Reason.empty() ? "yes" : "/dev/mem: " + row.Reason) << row.Name;
        EXPECT_EQ(Mapped(0xFFF, 300), row.Block) << row.Name;
        EXPECT_EQ(Mapped(ScanAddress, ScanLength), row.Scan) << row.Name;
        EXPECT_EQ(mapped, 0) << row.Name;
    }
}

TEST(MemoryDevice, SaysWhatToDoWhereItIsNotThereOrRefused)
{
    const std::pair<int, std::string> rows[] = {
        {ENOENT,
         "here, as in a container: run on the machine itself, as root, or give the container /dev/mem."},
        {EACCES, geteuid() == 0 ? "A policy of the system keeps it from root, too." : "Run as root."},
        {EPERM, "or the process lacks the capability CAP_SYS_RAWIO."},
        {EMFILE, "The kernel's log may say more."},
    };
    for (const auto& [error, advice] : rows) {
        kernel = {error};
        Mapped(0xFFF, 300);
        EXPECT_EQ(message.find(advice) + advice.size(), message.size()) << message;
    }
}

// What a caller takes as read is never made up.
TEST(MemoryDevice, IsStoodInForInTheSearchedRangeAlone)
{
    kernel = {ENOENT};
    for (const auto& [address, length] :
         {std::pair{ScanAddress, 512U}, std::pair{ScanAddress, ScanLength - 1},
          std::pair{ScanAddress + 1, ScanLength}, std::pair{ScanAddress, ScanLength + 1}})
        EXPECT_EQ(Mapped(address, length), "2002") << address << " " << length;
}

TEST(MemoryDevice, IsNotOpenedForNoBytesNorWhereThereIsNoSegment)
{
    kernel = {EACCES, 0, 0, true, false};
    opened = 0;
    EXPECT_EQ(Offered(0xFFFFFFFF, 0), "yes");
    EXPECT_EQ(Mapped(0xFFFFFFFF, 0), "erased") << "no byte is another";
    EXPECT_EQ(opened, 0);
    Mapped(ScanAddress, ScanLength);
    EXPECT_EQ(opened, IsX86 ? 1 : 0);
}

} // namespace
