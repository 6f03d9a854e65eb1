#include "hostile/FakeSystem.h"

#include "services/CMySemLock.h"
#include "services/FirmwareTable.h"
#include "services/MemMapDriverImpl.h"

#include <algorithm>
#include <cstring>
#include <new>

using Protocol::SMBIOS::SMBIOSProtocolImpl;

namespace Common {

int CMySemLock::AcquireSymLock(_MY_LOCK& lock, const char* /*name*/)
{
    lock.System = 1;
    ++FakeSystem::TheMachine.Locks;
    return 0;
}

void CMySemLock::ReleaseSymLock(_MY_LOCK lock)
{
    FakeSystem::TheMachine.Locks -= static_cast<unsigned int>(lock.System);
}

} // namespace Common

namespace OS::Driver {

constexpr unsigned long SegmentAddress = 0xF0000;
constexpr unsigned char NothingThere = 0xFF;

void MemMapDriverImpl::Map(unsigned long address, unsigned int length, MappingOwner* out)
{
    FakeSystem::Machine& machine = FakeSystem::TheMachine;
    if (machine.FailingMap != 0 && --machine.FailingMap == 0)
        throw ResultStatus(RESULT_MAPPING_FAILED, "refused", "", XCOMMAND_NONE);

    const bool isSegment = address == SegmentAddress;
    const FakeSystem::Bytes& bytes = isSegment ? machine.Segment : machine.Table;
    const unsigned long offset = address - (isSegment ? SegmentAddress : machine.TableAddress);
    auto image = std::make_unique<unsigned char[]>(length);
    std::fill_n(image.get(), length, NothingThere);
    if (offset < bytes.size()) {
        const std::size_t count = std::min<std::size_t>(length, bytes.size() - offset);
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(offset), count, image.get());
    }
    *out = MappingOwner(new UnmapDeleter(image.get(), length));
    image.release();
}

} // namespace OS::Driver

namespace Protocol::SMBIOS::Firmware {

unsigned long GetSystemFirmwareTable(unsigned long /*provider*/, unsigned long /*table*/,
                                     unsigned char* buffer, unsigned long size)
{
    const FakeSystem::Machine& machine = FakeSystem::TheMachine;
    const auto length = static_cast<unsigned long>(machine.Block.size());
    if (buffer == nullptr && machine.QueriedSize != 0)
        return machine.QueriedSize;
    if (buffer != nullptr && size >= length)
        std::copy(machine.Block.begin(), machine.Block.end(), buffer);
    return length;
}

unsigned long GetLastError()
{
    return 5;
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
    constexpr std::uint32_t Address = 0xE0007;
    Machine machine;
    machine.Segment = TestImages::EntryPoint(major, minor, static_cast<std::uint16_t>(table.size()), Address);
    machine.TableAddress = Address;
    machine.Table = table;
    return machine;
}

Machine Machine::WithBlock(const Bytes& table, unsigned char major, unsigned char minor)
{
    const std::size_t length = table.size();
    Machine machine;
    machine.Block = {0, major, minor, 0};
    for (int shift = 0; shift < 32; shift += 8)
        machine.Block.push_back(static_cast<unsigned char>(length >> shift));
    machine.Block.insert(machine.Block.end(), table.begin(), table.end());
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

} // namespace FakeSystem
