// The firmware's block as it is put together from the two files that the Linux kernel publishes. The linker
// sends the opening of files here.

#include "services/FirmwareTable.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <optional>
#include <string>

using namespace Protocol::SMBIOS;

namespace {

// What the files hold; one that is not there, or cannot be read.
struct Kernel {
    std::optional<std::string> EntryPoint, Table;
};

const std::string Unreadable = "unreadable";
Kernel kernel;

} // namespace

extern "C" {
std::FILE* __real_fopen(const char* path, const char* mode);

std::FILE* __wrap_fopen(const char* path, const char* mode)
{
    const std::string folder = "/sys/firmware/dmi/tables/";
    std::optional<std::string>* const file = path == folder + "smbios_entry_point" ? &kernel.EntryPoint
                                             : path == folder + "DMI"              ? &kernel.Table
                                                                                   : nullptr;
    if (file == nullptr)
        return __real_fopen(path, mode);
    if (*file == Unreadable)
        return __real_fopen("/", "rb"); // a folder opens, and cannot be read
    errno = ENOENT;
    return *file ? fmemopen((*file)->data(), (*file)->size(), "rb") : nullptr;
}
}

namespace {

std::string Block()
{
    std::string block(Firmware::GetSystemFirmwareTable(Firmware::RawSmbiosProvider, 0, nullptr, 0), '?');
    auto* const bytes = reinterpret_cast<unsigned char*>(block.data());
    const unsigned long size = block.size();
    if (size != 0) {
        EXPECT_EQ(Firmware::GetSystemFirmwareTable(Firmware::RawSmbiosProvider, 0, bytes, size - 1), size);
        EXPECT_EQ(block.find_first_not_of('?'), std::string::npos) << "written without room for it";
    }
    EXPECT_EQ(Firmware::GetSystemFirmwareTable(Firmware::RawSmbiosProvider, 0, bytes, size), size);
    return block;
}

// The first `size` bytes of an entry point that has its version at `offset`.
std::string EntryPoint(const std::string& anchor, std::size_t offset, const std::string& version,
                       std::size_t size)
{
    std::string bytes = anchor + std::string(31 - anchor.size(), '\x55');
    bytes.replace(offset, version.size(), version);
    bytes[0x1E] = '\x27';
    return bytes.substr(0, size);
}

TEST(PublishedTable, IsAVersionALengthAndTheTable)
{
    const std::string table(70'000, 't'); // 11170h bytes
    const struct {
        const char* Name;
        Kernel Has;
        std::string Head; ///< of the block; empty where there is none
        int Error;
    } rows[] = {
        {"32-bit form", {EntryPoint("_SM_", 6, "\2\7", 31), table}, {"\0\2\7\x27\x70\x11\1\0", 8}, 0},
        {"without its last byte", {EntryPoint("_SM_", 6, "\2\7", 30), table}, {"\0\2\7\0\x70\x11\1\0", 8}, 0},
        {"up to the version", {EntryPoint("_SM_", 6, "\2\7", 8), table}, {"\0\2\7\0\x70\x11\1\0", 8}, 0},
        {"cut in the version", {EntryPoint("_SM_", 6, "\2\7", 7), table}, "", EBADMSG},
        {"64-bit form", {EntryPoint("_SM3_", 7, "\3\4\1", 24), table}, {"\0\3\4\1\x70\x11\1\0", 8}, 0},
        {"up to the version", {EntryPoint("_SM3_", 7, "\3\4\1", 10), table}, {"\0\3\4\1\x70\x11\1\0", 8}, 0},
        {"cut in the version", {EntryPoint("_SM3_", 7, "\3\4\1", 9), table}, "", EBADMSG},
        {"another anchor", {EntryPoint("_DMI_", 7, "\3\4\1", 31), table}, "", EBADMSG},
        {"no table", {EntryPoint("_SM_", 6, "\2\7", 31), std::nullopt}, "", ENOENT},
        {"no entry point", {std::nullopt, table}, "", ENOENT},
        {"unreadable table", {EntryPoint("_SM_", 6, "\2\7", 31), Unreadable}, "", EISDIR},
        {"unreadable entry point", {Unreadable, table}, "", EISDIR},
    };
    for (const auto& row : rows) {
        kernel = row.Has;
        EXPECT_EQ(Block(), row.Head.empty() ? "" : row.Head + table) << row.Name;
        EXPECT_EQ(Firmware::GetLastError(), static_cast<unsigned long>(row.Error)) << row.Name;
    }
    kernel = rows[0].Has;
    EXPECT_EQ(Firmware::GetSystemFirmwareTable(0x41435049, 0, nullptr, 0), 0U) << "another provider";
    EXPECT_EQ(Firmware::GetLastError(), static_cast<unsigned long>(ENOSYS));
}

} // namespace
