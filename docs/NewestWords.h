// What docs/paths-newest.md says in words of its own.

#pragma once

#include "PathsWords.h"

inline const char* const NewestIntroduction = R"(# Paths of the newest catalogue

Every path of an object that was asked to read with the newest catalogue, and every text that can stand there. It
knows revision 3.8 of the standard, and reads tables of any version:

```cpp
SMBIOSProtocolImpl machine(TableImage::OfThisMachine(), Reading::Newest);
```

[paths.md](paths.md) has the paths of an object that reads by version. This page is generated from the library's
catalogue by `scripts/generate`; a test fails where it is stale.

What differs from reading by version:

- **What the firmware did not write is not there.** A field has a node only where the structure is long enough for
  it. A structure of an older firmware has fewer fields, and no field is read out of what follows the structure.
- **`/Handle`** comes first in every structure: a leaf such as `0x0700`. It is not repeated in the tables below.
- **Several structures of one type.** Most types have an index, which counts from 1. Of the others the first
  structure stands at the type's node, `/SMBIOS/Type3`, and further ones at `/SMBIOS/Type3[2]`,
  `/SMBIOS/Type3[3]`, which the type's node lists last.
- **What repeats in a structure** has an index too: records, such as `/SMBIOS/Type9[1]/PeerGroup[2]`, and strings,
  such as `/SMBIOS/Type11/String[1]`. Ask for the children of the structure to see how many there are. A record
  that the structure is too short for is not there, nor is any behind it.
- **Types without a table** below, such as those of a maker of its own, have a node where the machine has such a
  structure: `/SMBIOS/Type221[1]` with `/Data`, its bytes behind the header in hexadecimal, such as `0X0403`
  (missing where there are none), and `/String[n]`.
- **Links** lead to structures of every type.
- **No `/SPD_RAW`**: physical memory is not touched.

A name can hold "/": `/SMBIOS/Type0/BIOSCharacteristics/VL/VESA` is one leaf below `BIOSCharacteristics`. So a path
is not to be taken apart at its slashes; `NodeView` gives a node's name and its children.

Numbers are decimal in the tree, also where a special value reads better in hexadecimal here: FFFFh is the text
`65535`, and 8000h of a number with a sign is `-32768`. A value without a text of its own reads as an empty text.

`/SMBIOS` is an inner node: it lists a node for each type below, which is there whether or not the machine has such
a structure, and for each other type that the machine has, by rising number; then
[`/SMBIOS/ProcessorInfo`](paths.md#processors) and [`/SMBIOS/MemoryArray`](paths.md#memory), which are as by version.
)";

inline constexpr TypeName NewestTypeNames[] = {
    {5, "Memory Controller Information"},
    {6, "Memory Module Information"},
    {12, "System Configuration Options"},
    {14, "Group Associations"},
    {15, "System Event Log"},
    {20, "Memory Device Mapped Address"},
    {21, "Built-in Pointing Device"},
    {22, "Portable Battery"},
    {23, "System Reset"},
    {25, "System Power Controls"},
    {26, "Voltage Probe"},
    {27, "Cooling Device"},
    {28, "Temperature Probe"},
    {29, "Electrical Current Probe"},
    {30, "Out-of-Band Remote Access"},
    {31, "Boot Integrity Services (BIS) Entry Point"},
    {33, "64-bit Memory Error Information"},
    {34, "Management Device"},
    {35, "Management Device Component"},
    {36, "Management Device Threshold Data"},
    {37, "Memory Channel"},
    {39, "System Power Supply"},
    {40, "Additional Information"},
    {41, "Onboard Devices Extended Information"},
    {42, "Management Controller Host Interface"},
    {43, "TPM Device"},
    {44, "Processor Additional Information"},
    {45, "Firmware Inventory Information"},
    {46, "String Property"},
};

struct TypeNote {
    unsigned char Type;
    const char* Words;
};

inline constexpr TypeNote NewestNotes[] = {
    {22, "The year of `SBDSManufactureDate` is counted from 1980, so the number 20 is the year 2000; day and "
         "month are counted from 1."},
    {25, "The five bytes are binary coded decimal, so the two hexadecimal digits read as the decimal number: "
         "December is `0X12`. A byte outside its range leaves that part of the date open."},
    {31, "The standard only reserves the type number; the layout comes from the specification of the Boot "
         "Integrity Services programming interface, version 1.0."},
    {32,
     "0x09 to 0x7F are reserved, 0x80 to 0xBF specific to the firmware vendor or OEM, 0xC0 to 0xFF to the "
     "product."},
    {36, "A threshold has the unit of the probe or cooling device that the Type 35 structure joins with it."},
    {38, "Bit 0 of `BaseAddress` says where the address lies, 1 in I/O space and 0 in memory, and is no part "
         "of it; the address has `LSBitForAddresses` in its place. With `InterfaceType` 04h `BaseAddress` "
         "holds the SMBus address in the bits from 1 on. Polarity and trigger mode mean something only where "
         "`InterruptInfo` is 1. `NVStoreAddr` is FFh where there is no such device."},
    {39, "Status 05h means that the supply has failed and has been taken off line. The three handles are "
         "absent from a structure of 10h bytes."},
    {40, "An entry shorter than 5 bytes ends the list."},
    {42, "The values 0x00 to 0x3F of `InterfaceType` are MCTP host interfaces, whose list DMTF keeps in "
         "another document (DSP0239); any of them without a row is such an interface still. Where "
         "`InterfaceType` is F0h, the first four bytes of the data are the IANA enterprise number of the "
         "vendor, high byte first. The layout from 05h on holds for tables of version 3.2 and later; in a "
         "table of an older version the structure has `InterfaceType` alone."},
    {44, "What the data mean is laid down by the groups that look after each architecture, not by this "
         "standard; they are kept as raw bytes. The data end with the structure where `BlockLength` reaches "
         "beyond it."},
    {45, "Of `VersionFormat` the values 0x04 to 0x7F and of `FirmwareIDFormat` the values 0x02 to 0x7F are "
         "reserved; of both the values 0x80 to 0xFF are specific to the firmware vendor or OEM."},
    {46, "The values 0x0002 to 0x7FFF are reserved, 0x8000 to 0xBFFF are specific to the firmware vendor, "
         "0xC000 to 0xFFFF to the OEM."},
};
