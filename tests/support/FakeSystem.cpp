#include "support/FakeSystem.h"

#include "services/CMySemLock.h"
#include "services/FirmwareTable.h"
#include "services/MemMapDriverImpl.h"

#include <algorithm>
#include <cstdio>
#include <new>

using FakeSystem::TheMachine;

namespace {

constexpr std::intptr_t LockReference = 4711;

template <typename... Arguments>
void Note(const char* format, Arguments... arguments)
{
    if (!TheMachine.Records)
        return;
    char event[300];
    std::snprintf(event, sizeof event, format, arguments...);
    TheMachine.Seen.append(event).append("\n");
}

// The number of a source line, at the end of a message, reads "LINE"; the class's name and file go without
// saying.
void NoteLine(const LOGGER::LogLine& line)
{
    static const std::string Class = "Protocol::SMBIOS::SMBIOSProtocolImpl::";
    std::string message = line.Message, function = line.Function;
    const std::size_t number = message.rfind(": " + std::to_string(line.Line));
    if (number != std::string::npos)
        message.replace(number + 2, std::string::npos, "LINE");
    if (line.Level == 2 && line.File == ".\\SMBIOSProtocolImpl" && function.rfind(Class, 0) == 0)
        Note("log %s: %s", function.substr(Class.size()).c_str(), message.c_str());
    else
        Note("log %d %s %s: %s", line.Level, line.File.c_str(), function.c_str(), message.c_str());
}

} // namespace

namespace Common {

int CMySemLock::AcquireSymLock(_MY_LOCK& lock, const char* name)
{
    Note("lock %s", name);
    if (!TheMachine.LockIsFree)
        return 1;
    lock.System = LockReference;
    ++TheMachine.Locks;
    return 0;
}

void CMySemLock::ReleaseSymLock(_MY_LOCK lock)
{
    Note("%s", "unlock");
    if (lock.System == LockReference)
        --TheMachine.Locks;
}

} // namespace Common

namespace OS::Driver {

void MemMapDriverImpl::Map(unsigned long address, unsigned int length, MappingOwner* out)
{
    Note("map %lX %u", address, length);
    if (TheMachine.FailingMap != 0 && --TheMachine.FailingMap == 0) {
        if (TheMachine.MapFailure != nullptr)
            std::rethrow_exception(TheMachine.MapFailure);
        throw ResultStatus(RESULT_MAPPING_FAILED, "refused", "", XCOMMAND_NONE);
    }
    auto image = std::make_unique<unsigned char[]>(length);
    std::fill_n(image.get(), length, static_cast<unsigned char>(0xFF));
    for (const auto& [start, bytes] : TheMachine.Memory) {
        const std::uint64_t first = std::max(start, address);
        const std::uint64_t end =
            std::min<std::uint64_t>(start + bytes.size(), std::uint64_t{address} + length);
        if (first < end)
            std::copy_n(&bytes[first - start], end - first, &image[first - address]);
    }
    *out = MappingOwner(new UnmapDeleter(image.get(), length));
    image.release();
}

bool MemMapDriverImpl::Offers(unsigned long address, unsigned int /*length*/, std::string& reason)
{
    if (TheMachine.Kept.count(address) == 0)
        return true;
    reason = "kept away";
    return false;
}

} // namespace OS::Driver

namespace Protocol::SMBIOS::Firmware {

unsigned long GetSystemFirmwareTable(unsigned long provider, unsigned long table, unsigned char* buffer,
                                     unsigned long size)
{
    Note("firmware %lX %lu %lu", provider, table, size);
    const auto length = static_cast<unsigned long>(TheMachine.Block.size());
    if (buffer == nullptr)
        return TheMachine.QueriedSize != 0 ? TheMachine.QueriedSize : length;
    if (TheMachine.FetchResult)
        return *TheMachine.FetchResult;
    if (size >= length)
        std::copy(TheMachine.Block.begin(), TheMachine.Block.end(), buffer);
    return length;
}

unsigned long GetLastError()
{
    return TheMachine.SystemError;
}

} // namespace Protocol::SMBIOS::Firmware

namespace FakeSystem {

// The private default constructor, by the name that the linker knows.
void Construct(SMBIOSProtocolImpl* object) __asm__("_ZN8Protocol6SMBIOS18SMBIOSProtocolImplC1Ev");

namespace {

// An explicit instantiation may name a private member, and hands it on.
using Operation = void (SMBIOSProtocolImpl::*)();
Operation InitOperation();
template <Operation Init>
struct PrivateMember {
    friend Operation InitOperation() { return Init; }
};
template struct PrivateMember<&SMBIOSProtocolImpl::InitSMBiosTable>;

} // namespace

Machine TheMachine;

Machine Machine::WithEntryPoint(const Bytes& table, unsigned char major, unsigned char minor)
{
    constexpr unsigned long TableAddress = 0xD1235; // all of a table lies ahead of the segment
    Machine machine;
    machine.Memory = {{SegmentAddress, Images::EntryPoint(major, minor, table.size(), TableAddress)},
                      {TableAddress, table}};
    return machine;
}

Machine Machine::WithBlock(const Bytes& table, unsigned char major, unsigned char minor)
{
    Machine machine;
    machine.Block = Images::Join(Images::BlockHeader(major, minor, table.size()), table);
    return machine;
}

ObjectOwner NewLiveObject()
{
    void* const memory = ::operator new(sizeof(SMBIOSProtocolImpl));
    auto* const object = static_cast<SMBIOSProtocolImpl*>(memory);
    try {
        Construct(object);
    } catch (...) {
        ::operator delete(memory);
        throw;
    }
    return ObjectOwner(object);
}

void ReadAgain(SMBIOSProtocolImpl& object)
{
    (object.*InitOperation())();
}

void Record()
{
    TheMachine.Records = true;
    LOGGER::Logger::CreateInstance().SetSink(NoteLine);
}

} // namespace FakeSystem
