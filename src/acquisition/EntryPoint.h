// The 32-bit entry point of the standard, as far as it is read:
//
//   offset  width  field
//   00h     4      anchor "_SM_"
//   05h     1      entry point length: number of bytes in the checksum
//   06h     1      major version
//   07h     1      minor version
//   16h     2      structure table length, little-endian
//   18h     4      structure table address, little-endian

#pragma once

#include <cstddef>
#include <string>

namespace Protocol::SMBIOS::EntryPoint {

constexpr std::size_t AnchorSize = 4;
constexpr std::size_t LengthOffset = 0x05;
constexpr std::size_t MajorVersionOffset = 0x06;
constexpr std::size_t MinorVersionOffset = 0x07;
constexpr std::size_t TableLengthOffset = 0x16;
constexpr std::size_t TableAddressOffset = 0x18;

/// Bytes up to the end of the version, all that an image needs.
constexpr std::size_t SizeWithVersion = 0x08;
/// Bytes up to the end of the table address.
constexpr std::size_t SizeWithTable = 0x1C;

/// Whether the anchor stands at `bytes`, of which four are readable.
bool HasAnchor(const unsigned char* bytes);

/// Whether the bytes under the checksum sum to 0. A length of 0 passes.
bool ChecksumHolds(const unsigned char* entryPoint);

/// "2.7"
std::string VersionText(unsigned char major, unsigned char minor);

} // namespace Protocol::SMBIOS::EntryPoint
