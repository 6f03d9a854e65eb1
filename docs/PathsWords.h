// What the documents say in words of their own: all that is in no catalogue.

#pragma once

#include "catalogue/Definition.h"

#include <string>
#include <vector>

inline const char* const Introduction = R"(# Paths by version

Every path of an object that reads by version, and every text that can stand there.
[paths-newest.md](paths-newest.md) has those of `Reading::Newest`. This page is generated from the library's
catalogue by `scripts/generate`; a test fails where it is stale.

**Fields behind the end of a structure are read out of its strings.** By version a field is read wherever the
table goes on, whatever the structure's length says. A board of 8 bytes with the strings `Maker` and `Board` has
a `ChassisHandle` of 29285: those are the letters `er`. Where that must not be, read with `Reading::Newest`.

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

inline const char* const NewestIntroduction = R"(# Paths of the newest catalogue

Every path of an object that was asked to read with the newest catalogue, and every text that can stand there. It
knows revision 3.9 of the standard, and reads tables of any version:

```cpp
SMBIOSProtocolImpl machine(TableImage::OfThisMachine(), Reading::Newest);
```

[paths.md](paths.md) has the paths of an object that reads by version. This page is generated from the library's
catalogue by `scripts/generate`; a test fails where it is stale.

What differs from reading by version:

- **What the firmware did not write is not there.** A field has a node only where the structure is long enough for
  it. A structure of an older firmware has fewer fields, and no field is read out of what follows the structure.
- **From** is the revision of the standard that brought a field. 2.3 means an older one too, where a field is read
  by version as well.
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
- **Links** lead to structures of every type: where several have the handle, to the last of them in the table alone.
- **No `/SPD_RAW`**: physical memory is not touched.

A name can hold "/": `/SMBIOS/Type0/BIOSCharacteristics/VL/VESA` is one leaf below `BIOSCharacteristics`. So a path
is not to be taken apart at its slashes; `NodeView` gives a node's name and its children.

Numbers are decimal in the tree, also where a special value reads better in hexadecimal here: FFFFh is the text
`65535`, and 8000h of a number with a sign is `-32768`. A value without a text of its own reads as its number, such
as `0x58`: two hexadecimal digits for each byte of the field, two for a leaf with some bits of it. No text begins so.

`/SMBIOS` is an inner node: it lists a node for each type below, which is there whether or not the machine has such
a structure, and for each other type that the machine has, by rising number; then
[`/SMBIOS/ProcessorInfo`](paths.md#processors) and [`/SMBIOS/MemoryArray`](paths.md#memory), which are as by version.
)";

/// What docs/paths-newest.md says of a type as a whole.
struct TypeNote {
    unsigned char Type;
    const char* Words;
};

inline constexpr TypeNote NewestNotes[] = {
    {22, "The year 20 of `SBDSManufactureDate` is 2000; its day and month are counted from 1."},
    {25, "The five bytes are binary coded decimal, so the two hexadecimal digits read as the decimal number: "
         "December is `0X12`. A byte outside its range leaves that part of the date open."},
    {31, "The standard only reserves the type number; the layout comes from the specification of the Boot "
         "Integrity Services (BIS) programming interface, version 1.0."},
    {32,
     "0x09 to 0x7F are reserved, 0x80 to 0xBF specific to the firmware vendor or OEM, 0xC0 to 0xFF to the "
     "product."},
    {38, "Bit 0 of `BaseAddress` says where the address lies, 1 in I/O space and 0 in memory, and is no part "
         "of it; the address has `LSBitForAddresses` in its place. With `InterfaceType` 04h `BaseAddress` "
         "holds the SMBus address in the bits from 1 on. Polarity and trigger mode mean something only where "
         "`InterruptInfo` is 1."},
    {39, "Status 05h means that the supply has failed and has been taken off line. The three handles are "
         "absent from a structure of 10h bytes."},
    {40, "An entry shorter than 5 bytes ends the list."},
    {42, "The values 0x00 to 0x3F of `InterfaceType` are MCTP host interfaces, whose list DMTF keeps in "
         "another document (DSP0239); any of them without a row is such an interface still. Where "
         "`InterfaceType` is F0h, the first four bytes of the data are the IANA enterprise number of the "
         "vendor, high byte first. A table without a version is taken for one of the newest."},
    {44, "What the data mean is laid down by the groups that look after each architecture, not by this "
         "standard; they are kept as raw bytes. The data end with the structure where `BlockLength` reaches "
         "beyond it."},
    {45, "Of `VersionFormat` the values 0x04 to 0x7F and of `FirmwareIDFormat` the values 0x02 to 0x7F are "
         "reserved; of both the values 0x80 to 0xFF are specific to the firmware vendor or OEM."},
    {46, "The values 0x0002 to 0x7FFF are reserved, 0x8000 to 0xBFFF are specific to the firmware vendor, "
         "0xC000 to 0xFFFF to the OEM."},
};

using Protocol::SMBIOS::Catalogue::TableKind;

/// A decoder of one text.
struct LeafDecoder {
    TableKind Decoder;
    std::string Words;
    std::vector<std::vector<unsigned char>> Examples;
};

inline const LeafDecoder LeafDecoders[] = {
    {TableKind::BIOSRomSize, "the size in kilobytes", {{0x00}, {0x0F}, {0xFF}}},
    {TableKind::VoltageCapability,
     "with bit 7 the present voltage in tenths of a volt, without it a line for each of the bits 0 to 2",
     {{0x91}, {0x01}, {0x06}, {0x00}}},
    {TableKind::Flags, "bit 0", {{0x00}, {0x01}}},
    {TableKind::IPMISpecRev, "high and low four bits", {{0x15}, {0x20}}},
    {TableKind::UUID,
     "16 bytes, the first three groups as little-endian numbers",
     {{0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF}}},
};
