// Tables as a person writes them, a statement a line, or several with " | " between them:
//
//   4 0x0400: "CPU 1" 3 @0x18 0x41 w:0x0700   a structure: type, handle, fields
//   end                                       the end structure
//   entry 2.7                                 a 32-bit entry point, whose table is all other bytes
//   entry64 3.0                               a 64-bit entry point
//   block 2.7                                 the header of the firmware's raw block, likewise
//   hex 05 02 00 00                           bytes as they are
//   pad 32                                    zeros, up to that many bytes in all
//   cut 3                                     takes the last three bytes away
//
// Numbers are decimal, or hexadecimal behind 0x; "#" begins a comment line. The fields of a structure, one
// behind the other:
//
//   7 w:7 d:7 q:7   a number of 1, 2, 4, 8 bytes
//   "text"          the number of a string, which goes into the string set; "" is 0 and no string
//   +"text"         a string in the set alone
//   @0x18           zeros up to that offset
//   length=2        the structure's length byte, whatever its length
//
// In a text, \n \t \xNN \" \\ stand for bytes, and two texts with + between them are one. "3*" in front of a
// number or a text repeats it. "100x " in front of a statement repeats that; "i" and "i+1" in it are then the
// number of the copy, from 1 on, and of the next, behind the last the first again.
//
// Entry points and blocks take table=N and at=N (length and address of the table), length=N (of the entry
// point) and [N]=N (a byte). The checksum is right, but for bytes that are set behind the last length=N.

#pragma once

#include "samples/Image.h"

namespace Images {

/// The bytes of `text`. Throws std::invalid_argument with a line that is no statement.
Bytes FromText(const std::string& text);

/// The same, with what makes an image of them behind: the end structure and an entry point of 2.7, or of the
/// version in a statement "version 2.4". A text with an entry point of its own is taken as it is.
Bytes ImageFromText(const std::string& text);

} // namespace Images
