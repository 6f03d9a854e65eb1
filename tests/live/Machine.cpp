#include "Machine.h"

#include "services/CMySemLock.h"
#include "services/FirmwareTable.h"
#include "services/MemMapDriverImpl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

using TestImages::Bytes;

Machine TheMachine;

namespace {

constexpr std::intptr_t LockReference = 4711;

std::string HeldLock; // its name; empty: none

// What the last Map promised. It arrives only when the lock is given back: a reader who is too early sees
// 0xEE.
struct {
    unsigned char* Target = nullptr;
    Bytes Content;
} Pending;

void Record(const std::string& event)
{
    TheMachine.Seen.push_back(event);
}

std::string Hex(unsigned long number)
{
    char text[32];
    std::snprintf(text, sizeof text, "%lX", number);
    return text;
}

void RecordLine(const LOGGER::LogLine& line)
{
    std::string message = line.Message;
    const std::string number = ": " + std::to_string(line.Line);
    if (message.size() > number.size() && message.rfind(number) == message.size() - number.size())
        message.replace(message.size() - number.size() + 2, std::string::npos, "LINE");
    Record("log " + std::to_string(line.Level) + " " + line.File + " " + line.Function + ": " + message);
}

} // namespace

// The services

namespace Common {

int CMySemLock::AcquireSymLock(_MY_LOCK& lock, const char* name)
{
    EXPECT_EQ(HeldLock, "") << "the lock is taken twice";
    Record(std::string("lock ") + name);
    HeldLock = name;
    if (!TheMachine.LockIsFree)
        return 1;
    lock.System = LockReference;
    return 0;
}

void CMySemLock::ReleaseSymLock(_MY_LOCK lock)
{
    EXPECT_EQ(lock.System, TheMachine.LockIsFree ? LockReference : _MY_LOCK().System);
    Record("unlock " + HeldLock);
    HeldLock.clear();
    std::copy(Pending.Content.begin(), Pending.Content.end(), Pending.Target);
    Pending = {};
}

} // namespace Common

namespace OS::Driver {

void MemMapDriverImpl::Map(unsigned long address, unsigned int length, MappingOwner* out)
{
    Record("map " + Hex(address) + " " + std::to_string(length));
    if (TheMachine.FailingMap != 0 && --TheMachine.FailingMap == 0)
        std::rethrow_exception(TheMachine.MapFailure);
    Pending.Target = new unsigned char[length];
    std::fill_n(Pending.Target, length, static_cast<unsigned char>(0xEE));
    Pending.Content = TheMachine.Memory[address];
    Pending.Content.resize(length);
    *out = MappingOwner(new UnmapDeleter(Pending.Target, length));
}

} // namespace OS::Driver

namespace Protocol::SMBIOS::Firmware {

unsigned long GetSystemFirmwareTable(unsigned long provider, unsigned long table, unsigned char* buffer,
                                     unsigned long size)
{
    Record("firmware " + Hex(provider) + " " + std::to_string(table) + " " + std::to_string(size));
    const Bytes& block = TheMachine.FirmwareBlock;
    if (buffer != nullptr && TheMachine.FetchResult)
        return *TheMachine.FetchResult;
    if (buffer != nullptr && size >= block.size())
        std::copy(block.begin(), block.end(), buffer);
    return static_cast<unsigned long>(block.size());
}

unsigned long GetLastError()
{
    return TheMachine.SystemError;
}

} // namespace Protocol::SMBIOS::Firmware

// Memory: the linker sends calls of calloc and malloc here.

extern "C" {
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_malloc(std::size_t size);

void* __wrap_calloc(std::size_t count, std::size_t size)
{
    return count * size == TheMachine.RefusedCalloc ? nullptr : __real_calloc(count, size);
}

void* __wrap_malloc(std::size_t size)
{
    return size == TheMachine.RefusedMalloc ? nullptr : __real_malloc(size);
}
}

// Setting up and asking

void Machine::PutIntoSegment(std::size_t offset, const Bytes& bytes)
{
    Bytes& segment = Memory[SegmentAddress];
    segment.resize(SegmentLength);
    const std::size_t room = std::min(bytes.size(), SegmentLength - offset);
    std::copy_n(bytes.begin(), room, segment.begin() + static_cast<std::ptrdiff_t>(offset));
}

void Machine::PutTable(const Bytes& table, unsigned char major, unsigned char minor, std::uint32_t address)
{
    const auto length = static_cast<std::uint16_t>(table.size());
    PutIntoSegment(0, TestImages::EntryPoint(major, minor, length, address));
    Memory[address] = table;
}

void Machine::PutBlock(const Bytes& table, std::uint32_t length, unsigned char major, unsigned char minor)
{
    FirmwareBlock = {0xAA, major, minor, 0xAA};
    for (int shift = 0; shift < 32; shift += 8)
        FirmwareBlock.push_back(static_cast<unsigned char>(length >> shift));
    FirmwareBlock.insert(FirmwareBlock.end(), table.begin(), table.end());
}

Events Mapped(unsigned long address, unsigned int length)
{
    return {"lock GLOBAL_MEMORY_MAPPING", "map " + Hex(address) + " " + std::to_string(length),
            "unlock GLOBAL_MEMORY_MAPPING"};
}

std::string Logged(const std::string& function, const std::string& message)
{
    return "log 2 .\\SMBIOSProtocolImpl Protocol::SMBIOS::SMBIOSProtocolImpl::" + function + ": " + message;
}

Events Joined(const std::vector<Events>& parts)
{
    Events all;
    for (const Events& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

int Create()
{
    LOGGER::Logger::CreateInstance().SetSink(RecordLine);
    try {
        Protocol::SMBIOS::SMBIOSProtocolImpl::CreateInstance();
        return 0;
    } catch (const ResultStatus& failure) {
        return failure.Code();
    }
}

SearchResult Search(Protocol::SMBIOS::SMBIOSProtocolImpl& object, const std::string& path)
{
    SearchResult result;
    object.SMBiosSearch(path, result);
    return result;
}

std::string LiveLeaf(const std::string& path)
{
    const SearchResult result = Search(Protocol::SMBIOS::SMBIOSProtocolImpl::CreateInstance(), path);
    const auto node = result.find(path);
    return node == result.end() ? "(no node)" : node->second.Items.at(0);
}
