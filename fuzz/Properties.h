// What holds for every table, whatever bytes it came from: for the fuzzer, and for the tests' tables. A
// property that does not hold ends the process.

#pragma once

#include "support/FakeSystem.h"

#include <cstddef>

namespace Properties {

/// Ends the process where a property does not hold.
void Require(bool holds, const char* property);

/// How much of an input is tested.
enum class Effort {
    Usual, ///< one look at each node; more, as copies and other routes, with one input in 64, by its bytes
    Whole, ///< everything
};

/// Tests an input:
///
///   offset  width  use
///   0       1      bits 1:0  route: 0 an image, 1 a TableImage read with the newest catalogue, 2 the
///                            firmware's raw block, 3 the BIOS segment
///                  bits 7:4  route 2: the firmware tells a size that is so many times 16 bytes too large
///                            route 3: the Map call of this number fails; 0: none
///   1              routes 0 to 2: the image, dump or block
///                  route 3: two bytes, little-endian, the offset in the segment of all that follows: an
///                  entry point, whose checksum is made right, and from its byte 32 on also the table
///
/// False where the tree is too large for more than the look at its nodes.
bool Check(const unsigned char* data, std::size_t size, Effort effort);

} // namespace Properties
