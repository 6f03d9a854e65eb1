// The entry point of a table, in both forms of the standard, as far as it is read here:
//
//   32-bit  64-bit  width   field
//   00h     00h     4 / 5   anchor "_SM_" / "_SM3_"
//   04h     05h     1       checksum: all bytes of the entry point sum to 0
//   05h     06h     1       entry point length: number of those bytes
//   06h     07h     1       major version
//   07h     08h     1       minor version
//   16h     0Ch     2 / 4   structure table length / the most that it can be, little-endian

#pragma once

#include "Input.h"

#include <cstddef>
#include <string>

namespace SmbiosTree {

struct Version {
    unsigned char Major = 0;
    unsigned char Minor = 0;

    std::string Text() const { return std::to_string(Major) + "." + std::to_string(Minor); }
};

struct EntryPoint {
    SmbiosTree::Version Version;
    std::size_t TableLength = 0;
    bool IsLengthExact = false; ///< else the table may be shorter
};

/// Whether one of the two anchors stands at the start of `bytes`.
bool HasAnchor(const Bytes& bytes);

/// Reads the entry point at the start of `bytes`. Throws Failure where it is cut off or damaged.
EntryPoint ReadEntryPoint(const Bytes& bytes);

/// The shortest 32-bit entry point that gives a version.
Bytes MakeEntryPoint(Version version);

/// The offset of the first 32-bit anchor, where the library takes its entry point from; the image's size
/// where there is none.
std::size_t FindAnchor(const Bytes& image);

/// Version of the 32-bit entry point at `offset` of an image; 0.0 where the image ends before it.
Version VersionAt(const Bytes& image, std::size_t offset);

/// Gives the 32-bit entry point at `offset` another version. One that is cut off or whose checksum is wrong
/// stays as it is: it must not become right by this.
void RewriteVersion(Bytes& image, std::size_t offset, Version version);

} // namespace SmbiosTree
