#include "support/FakeSystem.h"

#include "services/CMySemLock.h"
#include "services/FirmwareTable.h"
#include "services/MemMapDriverImpl.h"

#include <algorithm>
#include <cstdio>
#include <new>

using FakeSystem::TheMachine;
using Protocol::SMBIOS::SMBIOSProtocolImpl;

namespace {

constexpr std::intptr_t LockReference = 4711;

template <typename... Arguments>
void Record(const char* format, Arguments... arguments)
{
    if (!TheMachine.Records)
        return;
    char event[300];
    std::snprintf(event, sizeof event, format, arguments...);
    TheMachine.Seen.emplace_back(event);
}

void RecordLine(const LOGGER::LogLine& line)
{
    std::string message = line.Message;
    const std::size_t number = message.rfind(": " + std::to_string(line.Line));
    if (number != std::string::npos)
        message.replace(number + 2, std::string::npos, "LINE");
    Record("log %d %s %s: %s", line.Level, line.File.c_str(), line.Function, message.c_str());
}

} // namespace

namespace Common {

int CMySemLock::AcquireSymLock(_MY_LOCK& lock, const char* name)
{
    Record("lock %s", name);
    if (!TheMachine.LockIsFree)
        return 1;
    lock.System = LockReference;
    ++TheMachine.Locks;
    return 0;
}

void CMySemLock::ReleaseSymLock(_MY_LOCK lock)
{
    Record("%s", "unlock");
    if (lock.System == LockReference)
        --TheMachine.Locks;
}

} // namespace Common

namespace OS::Driver {

void MemMapDriverImpl::Map(unsigned long address, unsigned int length, MappingOwner* out)
{
    Record("map %lX %u", address, length);
    if (TheMachine.FailingMap != 0 && --TheMachine.FailingMap == 0) {
        if (TheMachine.MapFailure != nullptr)
            std::rethrow_exception(TheMachine.MapFailure);
        throw ResultStatus(RESULT_MAPPING_FAILED, "refused", "", XCOMMAND_NONE);
    }
    auto image = std::make_unique<unsigned char[]>(length);
    std::fill_n(image.get(), length, static_cast<unsigned char>(0xFF));
    const auto behind = TheMachine.Memory.upper_bound(address);
    if (behind != TheMachine.Memory.begin()) {
        const auto& [start, bytes] = *std::prev(behind);
        const std::size_t offset = std::min<std::size_t>(address - start, bytes.size());
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(offset),
                    std::min<std::size_t>(length, bytes.size() - offset), image.get());
    }
    *out = MappingOwner(new UnmapDeleter(image.get(), length));
    image.release();
}

} // namespace OS::Driver

namespace Protocol::SMBIOS::Firmware {

unsigned long GetSystemFirmwareTable(unsigned long provider, unsigned long table, unsigned char* buffer,
                                     unsigned long size)
{
    Record("firmware %lX %lu %lu", provider, table, size);
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
    Machine machine;
    machine.Memory = {{SegmentAddress, TestImages::EntryPoint(major, minor, table.size(), TableAddress)},
                      {TableAddress, table}};
    return machine;
}

Machine Machine::WithBlock(const Bytes& table, unsigned char major, unsigned char minor)
{
    const std::size_t length = table.size();
    Machine machine;
    machine.Block = {0xAA, major, minor, 0xAA};
    for (int shift = 0; shift < 32; shift += 8)
        machine.Block.push_back(static_cast<unsigned char>(length >> shift));
    machine.Block = TestImages::Join(machine.Block, table);
    return machine;
}

std::unique_ptr<SMBIOSProtocolImpl> NewLiveObject()
{
    void* const memory = ::operator new(sizeof(SMBIOSProtocolImpl));
    auto* const object = static_cast<SMBIOSProtocolImpl*>(memory);
    try {
        Construct(object);
    } catch (...) {
        ::operator delete(memory);
        throw;
    }
    return std::unique_ptr<SMBIOSProtocolImpl>(object);
}

void ReadAgain(SMBIOSProtocolImpl& object)
{
    (object.*InitOperation())();
}

int Create()
{
    TheMachine.Records = true;
    LOGGER::Logger::CreateInstance().SetSink(RecordLine);
    try {
        NewLiveObject();
        return 0;
    } catch (const ResultStatus& failure) {
        return failure.Code();
    }
}

Events Mapped(unsigned long address, std::size_t length)
{
    char map[40];
    std::snprintf(map, sizeof map, "map %lX %u", address, static_cast<unsigned int>(length));
    return {"lock GLOBAL_MEMORY_MAPPING", map, "unlock"};
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

} // namespace FakeSystem
