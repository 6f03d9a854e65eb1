// Builds SMBIOS tables and caller's images, structure by structure, byte by byte: for the samples, the
// benchmarks, the tests and the fuzzers' seeds.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace Images {

using Bytes = std::vector<unsigned char>;

/// The fields of StructureOf that are wider than a byte.
struct Word {
    unsigned int Value;
};
struct Dword {
    std::uint32_t Value;
};
struct Qword {
    std::uint64_t Value;
};

/// One structure. Fields are appended behind the header in the order of the calls.
class Structure {
public:
    Structure(unsigned char type, std::uint16_t handle);

    Structure& Byte(unsigned int value) { return Number(value, 1); }
    Structure& Word(unsigned int value) { return Number(value, 2); }
    Structure& Dword(std::uint32_t value) { return Number(value, 4); }
    Structure& Raw(const Bytes& bytes);
    Structure& Fill(std::size_t count, unsigned char value = 0) { return Raw(Bytes(count, value)); }
    /// Zeros up to `offset`, counted from the header's first byte.
    Structure& FillUpTo(std::size_t offset);
    Structure& Number(std::uint64_t value, std::size_t width);
    /// Says another length than that of the formatted area.
    Structure& ClaimLength(unsigned char length);

    /// Appends a string to the string set and its number to the formatted area.
    Structure& Text(const std::string& text);
    /// Appends a string to the string set alone.
    Structure& MoreText(const std::string& text);

    template <typename Integer, std::enable_if_t<std::is_integral_v<Integer>, int> = 0>
    void Add(Integer byte)
    {
        Byte(static_cast<unsigned int>(byte));
    }
    void Add(Images::Word word) { Word(word.Value); }
    void Add(Images::Dword dword) { Dword(dword.Value); }
    void Add(Qword qword) { Number(qword.Value, 8); }
    void Add(const Bytes& bytes) { Raw(bytes); }
    /// An empty text takes no string: its number is 0.
    void Add(const std::string& text) { text.empty() ? Byte(0) : Text(text); }

    /// The structure with its string set.
    Bytes Finished() const;

private:
    Bytes Formatted;
    Bytes StringSet;
    unsigned char StringCount = 0;
    std::optional<unsigned char> Length; ///< none: the truth
};

/// A structure from its fields: a plain number is a byte, a text a string reference.
template <typename... Fields>
Structure StructureOf(unsigned char type, std::uint16_t handle, const Fields&... fields)
{
    Structure structure(type, handle);
    (structure.Add(fields), ...);
    return structure;
}

/// `left` with `right` behind it.
Bytes Join(Bytes left, const Bytes& right);

/// A 32-bit entry point of 31 bytes with a right checksum.
Bytes EntryPoint(unsigned char major, unsigned char minor, std::size_t tableLength = 0,
                 std::uint32_t tableAddress = 0);

/// A 64-bit entry point of 24 bytes with right checksum.
Bytes EntryPoint64(unsigned char major, unsigned char minor, std::size_t tableLength,
                   std::uint64_t tableAddress = 0);

/// An entry point with another length, with zeros up to there, and a checksum that holds.
Bytes WithLength(Bytes entryPoint, unsigned char length);

/// The header of the firmware's raw block with a table of so many bytes.
Bytes BlockHeader(unsigned char major, unsigned char minor, std::size_t tableLength);

/// The structures one behind the other, with the end structure behind them.
Bytes Table(const std::vector<Structure>& structures);

/// `table` with an entry point behind it: what the image constructor takes.
Bytes Image(const Bytes& table, unsigned char major, unsigned char minor);
Bytes Image(const std::vector<Structure>& structures, unsigned char major = 2, unsigned char minor = 7);

} // namespace Images
