/// \file
/// The structure types and what they are called.

#pragma once

#include <string_view>

namespace Protocol::SMBIOS {

/// What a structure type is called.
struct StructureType {
    unsigned char Number;   ///< the type byte of its structures
    std::string_view Word;  ///< one short word, as smbios-tree takes it: "memory"
    std::string_view Title; ///< the standard's, or for 132 and 133 the platform's: "Memory Device"
};

/// All types whose fields the library knows, by rising number.
inline constexpr StructureType StructureTypes[] = {
    {0, "bios", "BIOS Information"},
    {1, "system", "System Information"},
    {2, "board", "Baseboard Information"},
    {3, "chassis", "System Enclosure or Chassis"},
    {4, "processor", "Processor Information"},
    {5, "memory-controller", "Memory Controller Information"},
    {6, "memory-module", "Memory Module Information"},
    {7, "cache", "Cache Information"},
    {8, "connector", "Port Connector Information"},
    {9, "slot", "System Slots"},
    {10, "onboard", "On Board Devices Information"},
    {11, "oem", "OEM Strings"},
    {12, "option", "System Configuration Options"},
    {13, "language", "BIOS Language Information"},
    {14, "group", "Group Associations"},
    {15, "event-log", "System Event Log"},
    {16, "array", "Physical Memory Array"},
    {17, "memory", "Memory Device"},
    {18, "memory-error", "32-bit Memory Error Information"},
    {19, "array-address", "Memory Array Mapped Address"},
    {20, "memory-address", "Memory Device Mapped Address"},
    {21, "pointing", "Built-in Pointing Device"},
    {22, "battery", "Portable Battery"},
    {23, "reset", "System Reset"},
    {24, "security", "Hardware Security"},
    {25, "power-controls", "System Power Controls"},
    {26, "voltage", "Voltage Probe"},
    {27, "cooling", "Cooling Device"},
    {28, "temperature", "Temperature Probe"},
    {29, "current", "Electrical Current Probe"},
    {30, "remote-access", "Out-of-Band Remote Access"},
    {31, "boot-integrity", "Boot Integrity Services Entry Point"},
    {32, "boot", "System Boot Information"},
    {33, "memory-error-64", "64-bit Memory Error Information"},
    {34, "management", "Management Device"},
    {35, "management-component", "Management Device Component"},
    {36, "management-threshold", "Management Device Threshold Data"},
    {37, "channel", "Memory Channel"},
    {38, "ipmi", "IPMI Device Information"},
    {39, "power-supply", "System Power Supply"},
    {40, "additional", "Additional Information"},
    {41, "onboard-extended", "Onboard Devices Extended Information"},
    {42, "host-interface", "Management Controller Host Interface"},
    {43, "tpm", "TPM Device"},
    {44, "processor-additional", "Processor Additional Information"},
    {45, "firmware", "Firmware Inventory Information"},
    {46, "string", "String Property"},
    {132, "platform-memory", "Platform Memory Description"},
    {133, "reserved-memory", "Platform Reserved Memory"},
};

} // namespace Protocol::SMBIOS
