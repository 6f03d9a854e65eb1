// A machine of fakes in the place of the system's services, whose memory and firmware block a test or an
// attacker wrote, and objects of that machine.

#pragma once

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "support/Image.h"

#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace FakeSystem {

using TestImages::Bytes;
using Events = std::vector<std::string>;

constexpr unsigned long SegmentAddress = 0xF0000;
constexpr unsigned int SegmentLength = 65534;
constexpr unsigned long TableAddress = 0xE1235;

struct Machine {
    std::map<unsigned long, Bytes> Memory; ///< by the address of the first byte; all else reads as FFh
    Bytes Block;                           ///< the firmware's block; empty: there is none

    unsigned long QueriedSize = 0;            ///< what the firmware tells as its size; 0: the truth
    std::optional<unsigned long> FetchResult; ///< a fetch gives this and no bytes
    unsigned long SystemError = 5;            ///< what GetLastError tells
    unsigned int FailingMap = 0;              ///< number of the Map call that fails, from 1; 0: none
    std::exception_ptr MapFailure;            ///< null: a ResultStatus
    bool LockIsFree = true;                   ///< false: the lock cannot be had

    unsigned int Locks = 0; ///< taken and not given back

    /// Whether Seen grows with each call of a service and each line of the log:
    ///   lock NAME, unlock, map ADDRESS LENGTH, firmware PROVIDER TABLE BUFFERSIZE, log LEVEL FILE FUNCTION:
    ///   MESSAGE
    /// Numbers are decimal, but for the hexadecimal ADDRESS and PROVIDER. The number of a source line, at the
    /// end of a message, reads "LINE".
    bool Records = false;
    Events Seen;

    /// Puts a table where the 32-bit entry point leads, or into the firmware's block.
    static Machine WithEntryPoint(const Bytes& table, unsigned char major = 2, unsigned char minor = 7);
    static Machine WithBlock(const Bytes& table, unsigned char major = 2, unsigned char minor = 7);
};

extern Machine TheMachine;

/// A new object of TheMachine. CreateInstance makes only one a process.
std::unique_ptr<Protocol::SMBIOS::SMBIOSProtocolImpl> NewLiveObject();

/// Reads TheMachine anew into `object`.
void ReadAgain(Protocol::SMBIOS::SMBIOSProtocolImpl& object);

/// Makes an object of TheMachine, and records how: 0, or the code of the ResultStatus.
int Create();

/// The events of one mapping under the lock.
Events Mapped(unsigned long address, std::size_t length);

/// The event of a log line of `function`, a member of the class.
std::string Logged(const std::string& function, const std::string& message);

/// All `parts`, one behind the other.
Events Joined(const std::vector<Events>& parts);

} // namespace FakeSystem
