// The block is put together from two files that the kernel publishes: the entry point, for the version, and
// the table.
//
//   32-bit entry point: anchor "_SM_",  major version at 06h, minor at 07h, BCD revision at 1Eh
//   64-bit entry point: anchor "_SM3_", major version at 07h, minor at 08h, document revision at 09h

#include "services/FirmwareTable.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <vector>

namespace Protocol::SMBIOS::Firmware {

namespace {

constexpr const char* EntryPointFile = "/sys/firmware/dmi/tables/smbios_entry_point";
constexpr const char* TableFile = "/sys/firmware/dmi/tables/DMI";

thread_local int LastError = 0;

using Bytes = std::vector<unsigned char>;

struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

// Gives false, with the reason in errno, where the file cannot be read.
bool ReadFile(const char* path, Bytes& bytes)
{
    const std::unique_ptr<std::FILE, Close> file(std::fopen(path, "rbe"));
    if (file == nullptr)
        return false;
    unsigned char buffer[4096];
    std::size_t count = 0;
    while ((count = std::fread(buffer, 1, sizeof buffer, file.get())) != 0)
        bytes.insert(bytes.end(), buffer, buffer + count);
    return std::ferror(file.get()) == 0;
}

// Writes major, minor and revision from the entry point. False where it has no known form.
bool ReadVersion(const Bytes& entryPoint, unsigned char* version)
{
    if (entryPoint.size() > 0x07 && std::memcmp(entryPoint.data(), "_SM_", 4) == 0) {
        std::copy_n(&entryPoint[0x06], 2, version);
        // Some firmware counts one byte too few, and the kernel then leaves out the last, the revision.
        version[2] = entryPoint.size() > 0x1E ? entryPoint[0x1E] : 0;
        return true;
    }
    if (entryPoint.size() > 0x09 && std::memcmp(entryPoint.data(), "_SM3_", 5) == 0) {
        std::copy_n(&entryPoint[0x07], 3, version);
        return true;
    }
    return false;
}

// The whole block, empty on failure.
Bytes ReadBlock()
{
    Bytes entryPoint;
    Bytes block(TableOffset);
    if (!ReadFile(EntryPointFile, entryPoint) || !ReadFile(TableFile, block)) {
        LastError = errno;
        return {};
    }
    if (!ReadVersion(entryPoint, &block[MajorVersionOffset])) {
        LastError = EBADMSG;
        return {};
    }
    const std::size_t length = block.size() - TableOffset;
    for (std::size_t i = 0; i < 4; ++i)
        block[LengthOffset + i] = static_cast<unsigned char>(length >> 8 * i);
    return block;
}

} // namespace

unsigned long GetSystemFirmwareTable(unsigned long provider, unsigned long /*table*/, unsigned char* buffer,
                                     unsigned long size)
{
    LastError = 0;
    if (provider != RawSmbiosProvider) {
        LastError = ENOSYS;
        return 0;
    }
    const Bytes block = ReadBlock();
    if (buffer != nullptr && size >= block.size())
        std::copy(block.begin(), block.end(), buffer);
    return static_cast<unsigned long>(block.size());
}

unsigned long GetLastError()
{
    return static_cast<unsigned long>(LastError);
}

} // namespace Protocol::SMBIOS::Firmware
