// What docs/paths.md says in words of its own: all that is in no catalogue.

#pragma once

#include <vector>

inline const char* const Introduction = R"(# Paths

Every path that a caller can ask for, and every text that can stand there. This page is generated from the
library's catalogues by `scripts/generate`; a test fails where it is stale.

- Paths begin with the root: `/SMBIOS` here, or what the caller gave to the constructor. They are exact: case,
  blanks and odd spellings count.
- `[n]` counts the structures of a type from 1, in the order of the table. A type without `[n]` has one node for
  all its structures; the last one's texts stand there.
- "From" is the first revision that has a type or field; every later one has it too. Revision 2.7 also reads the
  versions 2.8 and 3.0. A revision's table of texts is fixed by the version of the SMBIOS table: a value without
  a text in it reads as an empty text.
- A leaf holds one text. An inner node holds the paths of its children.
- Fields that lie past the end of the SMBIOS table have no node.
- A type without `[n]` that occurs again lists all its fields again, and each of them is decoded over the one
  before: a list of children has such a path twice. `NodeView::DistinctChildren` gives each once.
- A name can hold "/": `/SMBIOS/Type0/BIOSCharacteristics/VL/VESA` is one leaf below `BIOSCharacteristics`. So a
  path is not to be taken apart at its slashes; `NodeView` gives a node's name and its children.
- Numbers are decimal in the tree, also where a special value reads better in hexadecimal here: FFFFh is the text
  `65535`.
- What else revision 2.7 and later ones describe is not read by version: fields that the tables below do not have,
  records that repeat, strings without a field, all other types. [paths-newest.md](paths-newest.md) has them.

`/SMBIOS` is an inner node: it lists a node for each type below, which is there whether or not the machine has
such a structure, then `/SMBIOS/ProcessorInfo` and `/SMBIOS/MemoryArray`.
)";

inline const char* const Inventories = R"(
## Links

A handle above is a leaf with the number where that is 0, 65534 or 65535. Else it is an inner node. It has no
children where no structure that is read has this handle, where following it would lead back to a handle on the
way, or more than four links deep. Everywhere else:

| Path below the field | What stands there |
|---|---|
| `/Handle` | leaf: the handle, such as `0x0700` |
| `/` and a field's name | the fields of the structure with this handle, as they stand below its own type, without an index |

## Processors

| Path | What stands there |
|---|---|
| `/SMBIOS/ProcessorInfo` | inner: the count, the processors, the count of the present ones |
| `/SMBIOS/ProcessorInfo/TotalNoOfProcessor` | leaf: number of structures of type 4 |
| `/SMBIOS/ProcessorInfo[n]` | inner: a copy of `/SMBIOS/Type4[n]` with all below it, but for the `_Raw` leaves |
| `/SMBIOS/ProcessorInfo[n]/ProcessorPresent` | leaf: `True` where `/Status/CPU Socket Populated` is `Yes`, else `False` |
| `/SMBIOS/ProcessorInfo/TotalNoOfProcessorPresent` | leaf: number of those that are `True` |

## Memory

`n` is the index of the array among the structures of type 16. `k` counts the devices of an array from 1; it is
not the index of the device among those of type 17.

| Path | What stands there |
|---|---|
| `/SMBIOS/MemoryArray` | inner: the count, then the arrays |
| `/SMBIOS/MemoryArray/TotalNoOfArray` | leaf: number of structures of type 16 |
| `/SMBIOS/MemoryArray[n]` | inner: a copy of `/SMBIOS/Type16[n]` with all below it |
| `/SMBIOS/MemoryArray[n]/MemoryDevice` | inner: the devices whose `MemoryArrayHandle` is the array's handle |
| `/SMBIOS/MemoryArray[n]/MemoryDevice[k]` | inner: a copy of one `/SMBIOS/Type17[i]` with all below it |
| `/SMBIOS/MemoryArray[n]/MemoryDevice[k]/DevicePresent` | leaf: `False` where `/Size` is `0`, else `True` |
| `/SMBIOS/MemoryArray[n]/TotalNoOfDevicePresent` | leaf: number of those that are `True` |

## The running machine

An object made by `CreateInstance` has one more leaf, which an object built from an image lacks:

| Path | What stands there |
|---|---|
| `/SMBIOS/Type132[n]/SPD_RAW` | leaf: the first bytes, at most 512, of the block that `/Address` and `/Size` name, such as `0x92 0x10 0x0B ` with the blank at the end |
)";

struct TypeName {
    unsigned char Number;
    const char* Name;
};

inline constexpr TypeName TypeNames[] = {
    {0, "BIOS Information"},
    {1, "System Information"},
    {2, "Baseboard Information"},
    {3, "System Enclosure or Chassis"},
    {4, "Processor Information"},
    {7, "Cache Information"},
    {8, "Port Connector Information"},
    {9, "System Slots"},
    {10, "On Board Devices Information"},
    {11, "OEM Strings"},
    {13, "BIOS Language Information"},
    {16, "Physical Memory Array"},
    {17, "Memory Device"},
    {18, "32-bit Memory Error Information"},
    {19, "Memory Array Mapped Address"},
    {24, "Hardware Security"},
    {32, "System Boot Information"},
    {38, "IPMI Device Information"},
    {132, "Platform memory description"},
    {133, "Platform reserved memory"},
};

/// A decoder of one text.
struct LeafDecoder {
    const char* Header;
    const char* Words;
    std::vector<std::vector<unsigned char>> Examples;
};

inline const LeafDecoder LeafDecoders[] = {
    {"BIOSRomSize", "the size in kilobytes", {{0x00}, {0x0F}, {0xFF}}},
    {"VoltageCapability",
     "with bit 7 the present voltage in tenths of a volt, without it a line for each of the bits 0 to 2",
     {{0x91}, {0x01}, {0x06}, {0x00}}},
    {"Flags", "bit 0", {{0x00}, {0x01}}},
    {"IPMISpecRev", "high and low four bits", {{0x15}, {0x20}}},
    {"UUID",
     "16 bytes, the first three groups as little-endian numbers",
     {{0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF}}},
};

/// A leaf that a decoder hangs below its field, and the bits that it shows.
struct Child {
    const char* Header;
    const char* Name;
    int LowestBit, BitCount;
};

inline constexpr Child Children[] = {
    {"Status", "/CPUStatus", 0, 3},
    {"Status", "/CPU Socket Populated", 6, 1},
    {"CacheSize", "/Size", 0, 15},
    {"CacheSize", "/Unit", 15, 1},
    {"CacheConfiguration", "/CacheLevel", 0, 3},
    {"CacheConfiguration", "/Cache Socketed", 3, 1},
    {"CacheConfiguration", "/Location", 5, 2},
    {"CacheConfiguration", "/At Boot Time", 7, 1},
    {"CacheConfiguration", "/Operation Mode", 8, 2},
    {"HardwareSecuritySettings", "/FrontPanelReset", 0, 2},
    {"HardwareSecuritySettings", "/AdministratorPassword", 2, 2},
    {"HardwareSecuritySettings", "/KeyboardPassword", 4, 2},
    {"HardwareSecuritySettings", "/PowerOnPassword", 6, 2},
};
inline constexpr int MostBitsToList = 4; ///< a wider child is a number
