// The operating system's raw firmware tables, in the form of the Windows call. The raw SMBIOS block:
//
//   offset  width  field
//   00h     1      calling method: 0 or 1
//   01h     1      SMBIOS major version
//   02h     1      SMBIOS minor version
//   03h     1      revision of the table
//   04h     4      length of the table, little-endian
//   08h            the table

#pragma once

#include <cstddef>

namespace Protocol::SMBIOS::Firmware {

/// The provider of the raw SMBIOS block: 'RSMB'.
constexpr unsigned long RawSmbiosProvider = 0x52534D42;

constexpr std::size_t CallingMethodOffset = 0x00;
constexpr std::size_t MajorVersionOffset = 0x01;
constexpr std::size_t MinorVersionOffset = 0x02;
constexpr std::size_t LengthOffset = 0x04;
constexpr std::size_t LengthWidth = 4;
constexpr std::size_t TableOffset = 0x08;

/// Copies the provider's block `table` into `buffer` and gives its length in bytes. Gives the length alone
/// where `buffer` is null or `size` too small, and 0 on failure, with GetLastError telling why.
unsigned long GetSystemFirmwareTable(unsigned long provider, unsigned long table, unsigned char* buffer,
                                     unsigned long size);

/// The system's error number of this thread's last failed call.
unsigned long GetLastError();

} // namespace Protocol::SMBIOS::Firmware
