// The operating system's raw firmware tables, in the form of the Windows call.

#pragma once

namespace Protocol::SMBIOS::Firmware {

/// The provider of the raw SMBIOS block: 'RSMB'.
constexpr unsigned long RawSmbiosProvider = 0x52534D42;

/// Copies the provider's block `table` into `buffer` and gives its length in bytes. Gives the length alone
/// where `buffer` is null or `size` too small, and 0 on failure, with GetLastError telling why.
unsigned long GetSystemFirmwareTable(unsigned long provider, unsigned long table, unsigned char* buffer,
                                     unsigned long size);

/// The system's error number of this thread's last failed call.
unsigned long GetLastError();

} // namespace Protocol::SMBIOS::Firmware
