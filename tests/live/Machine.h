// A machine made of fakes. They stand in the place of the system's services and record what the library asks
// of them.

#pragma once

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "support/Image.h"

#include <cstddef>
#include <exception>
#include <map>
#include <optional>
#include <string>
#include <vector>

using SearchResult = std::map<std::string, _XNode>;
using Events = std::vector<std::string>;

constexpr unsigned long SegmentAddress = 0xF0000;
constexpr unsigned int SegmentLength = 65534;

struct Machine {
    /// Physical memory, by the address at which a mapping begins; all else reads as zeros.
    std::map<unsigned long, TestImages::Bytes> Memory;
    TestImages::Bytes FirmwareBlock; ///< empty: the system has none

    int FailingMap = 0; ///< number of the Map call that fails, from 1; 0: none
    std::exception_ptr MapFailure;
    bool LockIsFree = true;                   ///< false: the lock cannot be had
    std::optional<unsigned long> FetchResult; ///< a fetch gives this and no bytes
    unsigned long SystemError = 0;            ///< what GetLastError tells
    std::size_t RefusedCalloc = ~0U;          ///< calloc gives none of this size
    std::size_t RefusedMalloc = ~0U;          ///< malloc gives none of this size

    /// Each call of a service and each line of the log, in order:
    ///   lock NAME, unlock NAME, map ADDRESS LENGTH, firmware PROVIDER TABLE BUFFERSIZE,
    ///   log LEVEL FILE FUNCTION: MESSAGE
    /// Numbers are decimal, but for the hexadecimal ADDRESS and PROVIDER. The number of a source line, at the
    /// end of a message, reads "LINE".
    Events Seen;

    /// Puts `bytes` into the BIOS segment.
    void PutIntoSegment(std::size_t offset, const TestImages::Bytes& bytes);
    /// Puts `table` at `address` and an entry point for it at the start of the BIOS segment.
    void PutTable(const TestImages::Bytes& table, unsigned char major = 2, unsigned char minor = 7,
                  std::uint32_t address = 0xE1235);
    /// Makes `table` the system's firmware block, with a header that claims `length` bytes.
    void PutBlock(const TestImages::Bytes& table, std::uint32_t length, unsigned char major = 2,
                  unsigned char minor = 7);
};

/// The machine of the running test. Each test has a process, and so a machine, of its own.
extern Machine TheMachine;

/// The events of one mapping under the lock.
Events Mapped(unsigned long address, unsigned int length);

/// The event of a log line of `function`, a member of the class.
std::string Logged(const std::string& function, const std::string& message);

/// All `parts`, one behind the other.
Events Joined(const std::vector<Events>& parts);

/// Constructs the object of the machine: 0, or the code of the ResultStatus.
int Create();

SearchResult Search(Protocol::SMBIOS::SMBIOSProtocolImpl& object, const std::string& path);

/// The text of the leaf at `path` in the object of the machine; "(no node)" where there is none.
std::string LiveLeaf(const std::string& path);
