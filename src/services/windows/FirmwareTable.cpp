#include "services/FirmwareTable.h"

#include <windows.h>

namespace Protocol::SMBIOS::Firmware {

unsigned long GetSystemFirmwareTable(unsigned long provider, unsigned long table, unsigned char* buffer,
                                     unsigned long size)
{
    return ::GetSystemFirmwareTable(provider, table, buffer, size);
}

unsigned long GetLastError()
{
    return ::GetLastError();
}

} // namespace Protocol::SMBIOS::Firmware
