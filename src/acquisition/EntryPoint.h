// The entry point of the standard, in both its forms, as far as it is read or written:
//
//   32-bit  64-bit  width   field
//   00h     00h     4 / 5   anchor "_SM_" / "_SM3_"
//   04h     05h     1       checksum: all bytes of the entry point sum to 0
//   05h     06h     1       entry point length: number of those bytes
//   06h     07h     1       major version
//   07h     08h     1       minor version
//   08h             2       size of the largest structure, little-endian
//           0Ah     1       entry point revision: 1
//   10h             5       intermediate anchor "_DMI_"
//   15h             1       intermediate checksum: the bytes from 10h on sum to 0
//   16h     0Ch     2 / 4   structure table length / the most that it can be, little-endian
//   18h     10h     4 / 8   structure table address, little-endian
//   1Ch             2       number of structures, little-endian
//   1Eh             1       version in binary-coded decimal

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Protocol::SMBIOS::EntryPoint {

constexpr std::size_t AnchorSize = 4;
constexpr std::size_t LengthOffset = 0x05;
constexpr std::size_t MajorVersionOffset = 0x06;
constexpr std::size_t MinorVersionOffset = 0x07;
constexpr std::size_t TableLengthOffset = 0x16;
constexpr std::size_t TableAddressOffset = 0x18;

/// Where the table stands in a dump, behind its entry point.
constexpr std::size_t TableOffset = 0x20;

/// Bytes of the 32-bit form up to the end of the version, all that an image needs.
constexpr std::size_t SizeWithVersion = 0x08;
/// Bytes of the 32-bit form up to the end of the table address.
constexpr std::size_t SizeWithTable = 0x1C;

/// The offset of the first anchor of the 32-bit form from `start` on; `size` where there is none.
std::size_t FindAnchor(const unsigned char* bytes, std::size_t size, std::size_t start = 0);

/// Whether all that an image needs of a 32-bit entry point lies within the `size` bytes from its start.
bool IsComplete(const unsigned char* entryPoint, std::size_t size);

/// Whether the bytes under the checksum of a 32-bit entry point sum to 0. A length of 0 passes.
bool ChecksumHolds(const unsigned char* entryPoint);

/// "2.7"
std::string VersionText(unsigned char major, unsigned char minor);

using Bytes = std::vector<unsigned char>;

/// The version of the standard that a table follows.
struct Version {
    unsigned char Major = 0;
    unsigned char Minor = 0;
};

/// What an entry point of either form tells.
struct Facts {
    EntryPoint::Version Version;
    std::uint64_t TableAddress = 0;
    std::size_t TableLength = 0;
    bool IsLengthExact = false; ///< else the table may be shorter
};

/// Why bytes are no entry point.
enum class Fault {
    None,
    NoAnchor, ///< they begin with neither anchor
    CutOff,   ///< they end within the entry point
    Damaged,  ///< the length or the checksum is wrong
};

/// Whether an anchor of either form stands at the start of `bytes`.
bool HasEitherAnchor(const unsigned char* bytes, std::size_t size);

/// Reads the entry point of either form at the start of `bytes`. Sets `facts` only where nothing is wrong.
Fault Read(const unsigned char* bytes, std::size_t size, Facts& facts);

/// Sets the version of the complete 32-bit entry point at the start of `bytes`, and its checksum.
void RewriteVersion(Bytes& bytes, Version version);

/// The shortest 32-bit entry point with a version.
Bytes Shortest(Version version);

/// A whole 32-bit entry point of a table at `tableAddress`, of at most 65,535 bytes.
Bytes Whole32(Version version, std::size_t tableAddress, std::size_t tableLength,
              std::size_t largestStructure, std::size_t structureCount);

/// A whole 64-bit entry point of a table at `tableAddress`.
Bytes Whole64(Version version, std::size_t tableAddress, std::size_t tableLength);

} // namespace Protocol::SMBIOS::EntryPoint
