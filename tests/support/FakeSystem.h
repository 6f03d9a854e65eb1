// A machine of fakes in the place of the system's services, whose memory and firmware block a test or an
// attacker wrote, and objects of that machine.

#pragma once

#include "samples/Image.h"
#include "support/Tree.h"

#include <exception>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace FakeSystem {

using Images::Bytes;

constexpr unsigned long SegmentAddress = 0xF0000;
constexpr unsigned int SegmentLength = 65534;

struct Machine {
    std::map<unsigned long, Bytes> Memory; ///< by the address of the first byte; all else reads as FFh
    Bytes Block;                           ///< the firmware's block; empty: there is none

    unsigned long QueriedSize = 0;            ///< what the firmware tells as its size; 0: the truth
    std::optional<unsigned long> FetchResult; ///< a fetch gives this and no bytes
    unsigned long SystemError = 5;            ///< what GetLastError tells
    unsigned int FailingMap = 0;              ///< number of the Map call that fails, from 1; 0: none
    std::exception_ptr MapFailure;            ///< null: a ResultStatus
    std::set<unsigned long> Kept;             ///< addresses of ranges that the system gives to no one
    bool LockIsFree = true;                   ///< false: the lock cannot be had

    unsigned int Locks = 0; ///< taken and not given back

    /// Whether Seen grows with each call of a service and each line of the log, a line an event.
    bool Records = false;
    std::string Seen;

    /// Puts a table where the 32-bit entry point leads, or into the firmware's block.
    static Machine WithEntryPoint(const Bytes& table, unsigned char major = 2, unsigned char minor = 7);
    static Machine WithBlock(const Bytes& table, unsigned char major = 2, unsigned char minor = 7);
};

extern Machine TheMachine;

/// A new object of TheMachine. CreateInstance makes only one a process.
ObjectOwner NewLiveObject();

/// Reads TheMachine anew into `object`.
void ReadAgain(SMBIOSProtocolImpl& object);

/// Has TheMachine record from now on, the lines of the log too.
void Record();

} // namespace FakeSystem
