// The system's services on a machine whose memory and firmware block an attacker wrote, and objects of that
// machine. The fuzzers use them too.

#pragma once

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "support/Image.h"

#include <cstdint>
#include <memory>

namespace FakeSystem {

using TestImages::Bytes;

struct Machine {
    Bytes Segment;                  ///< physical memory from F0000h on
    std::uint32_t TableAddress = 0; ///< where Table stands; all other memory reads as FFh
    Bytes Table;
    Bytes Block;                   ///< the firmware's block; empty: there is none
    unsigned long QueriedSize = 0; ///< what the firmware tells as its size; 0: the truth
    unsigned int FailingMap = 0;   ///< number of the Map call that fails, from 1; 0: none
    unsigned int Locks = 0;        ///< taken and not given back

    /// Puts a table where the 32-bit entry point leads, or into the firmware's block.
    static Machine WithEntryPoint(const Bytes& table, unsigned char major, unsigned char minor);
    static Machine WithBlock(const Bytes& table, unsigned char major, unsigned char minor);
};

extern Machine TheMachine;

/// A new object of TheMachine. CreateInstance makes only one a process.
std::unique_ptr<Protocol::SMBIOS::SMBIOSProtocolImpl> NewLiveObject();

/// Reads TheMachine anew into `object`.
void ReadAgain(Protocol::SMBIOS::SMBIOSProtocolImpl& object);

} // namespace FakeSystem
