/// \file
/// A structure table, from anywhere.

#pragma once

#include "SMBIOSProtocol/Export.h"

#include <cstddef>
#include <filesystem>
#include <vector>

namespace Protocol::SMBIOS {

/// Why the walk over the structures of a table ended. Behind an end structure anything may stand; the last
/// three mean damage.
enum class TableEnd {
    EndStructure,   ///< at the structure that ends a table
    LastByte,       ///< at the last byte, without an end structure
    ShortStructure, ///< at a structure whose length byte says less than 4
    CutStructure,   ///< at a structure that the table does not hold whole
    CutStrings,     ///< at a structure whose strings do not end within the table
};

/// How far the structures of a table reach.
struct TableExtent {
    std::size_t Size = 0;              ///< bytes of all whole structures; damage begins here
    std::size_t StructureCount = 0;    ///< whole structures, the end structure included
    std::size_t LargestStructure = 0;  ///< bytes of the largest one, its strings included
    TableEnd End = TableEnd::LastByte; ///< why the walk ended

    /// Whether the walk ended at damage. What stands behind it is not read.
    bool IsDamaged() const noexcept { return End > TableEnd::LastByte; }
};

/// A structure table and its version: of this machine, of a file, or of bytes in memory. It owns its bytes.
///
/// Files and bytes come in these forms, told apart by what they hold:
///
/// - a dump: an entry point of either form at 0 (32-bit `_SM_`, 64-bit `_SM3_`), the table at 32;
/// - a block as Windows hands it out and keeps in its registry: 8 bytes, then the table;
/// - an image: the table, and a 32-bit entry point somewhere behind it;
/// - a bare table, such as the file `DMI` alone: it has no version;
/// - a folder (files only): an entry point in `smbios_entry_point`, the table in `DMI`, as Linux publishes
///   them in `/sys/firmware/dmi/tables`.
///
/// Failures are a ResultStatus or a `std::bad_alloc`. The message says what was wrong and what to do; it does
/// not name the file.
class SMBIOSPROTOCOL_API TableImage {
public:
    /// The largest table, in bytes. Read by version it is 65,527, or of an image 65,535 with all that stands
    /// behind the table.
    static constexpr std::size_t MaxTableSize = 1'048'576;
    /// The largest file that is read, in bytes. Bytes behind the table are ignored.
    static constexpr std::size_t MaxFileSize = 16U << 20;

    /// The table of the running machine, as the operating system publishes it. Where it publishes none and
    /// the processor is an x86: the table that an entry point in the BIOS segment names.
    /// Codes: 1013 there is none, 1024 its entry point is damaged, 2001 to 2003 physical memory cannot be
    /// read, 2107 too large.
    static TableImage OfThisMachine();

    /// The table of a file or a folder. Devices, pipes and the like are not read. Codes: 2101 not there, 2102
    /// not readable, 2103 a folder without the two files, 2104 empty, 2107 too large, and those of FromBytes.
    static TableImage FromFile(const std::filesystem::path& file);

    /// The table in the bytes of a file. Codes: 1013 they have none of the forms, 1024 the entry point is
    /// damaged, 2104 empty, 2105 cut off, 2107 too large.
    static TableImage FromBytes(std::vector<unsigned char> bytes);

    int Major() const noexcept; ///< of the version: 2 of 2.7; a table without a version has 0.0
    int Minor() const noexcept; ///< of the version: 7 of 2.7

    /// The structures, one behind the other. Of an image this is what stands in front of the entry point.
    const std::vector<unsigned char>& Table() const noexcept;

    /// How far the structures reach, as the newest catalogue reads them.
    const TableExtent& Extent() const noexcept;

    /// False where the table is damaged, as Extent says, or may be cut off: it has no end structure, and its
    /// length is not known (bare table), only an upper bound (64-bit entry point), or larger than the data.
    bool IsWhole() const noexcept;

    /// The same table with another version, for Reading::ByVersion, which refuses a table without one. Both
    /// numbers are 0 to 255; others throw 1111.
    TableImage As(int major, int minor) const;

    /// Writes a dump that FromFile and other programs read: a new file with the entry point at 0 and the
    /// table at 32. A write that fails leaves no file. Codes: 2108 the file exists, 2109 it cannot be
    /// written.
    ///
    /// The entry point has the 64-bit form for versions from 3.0 on and for tables above 65,535 bytes, else
    /// the 32-bit form. Readers of the 64-bit form stop at the end structure, so a table with bytes behind it
    /// has the 32-bit form wherever its size allows. A table without a version is saved with 3.0.
    void Save(const std::filesystem::path& file) const;

private:
    friend class SMBIOSProtocolImpl;
    using Bytes = std::vector<unsigned char>;

    TableImage(Bytes structures, Bytes behind, unsigned char major, unsigned char minor);
    static TableImage FromBlock(const Bytes& block);
    static TableImage FromImage(Bytes image, std::size_t offset);
    static TableImage FromParts(const Bytes& entryPoint, Bytes table);
    static TableImage FromTable(Bytes table, unsigned char major, unsigned char minor);
    Bytes TableByVersion() const;

    Bytes Structures;
    Bytes Behind; ///< a 32-bit entry point and what stood behind it; by version fields may reach into it
    unsigned char MajorVersion;
    unsigned char MinorVersion;
    TableExtent Reach;
    bool IsLengthKnown = true; ///< else a table without an end structure may be cut off
};

} // namespace Protocol::SMBIOS
