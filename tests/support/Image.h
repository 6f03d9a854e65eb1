// Builds SMBIOS tables and caller's images, structure by structure, byte by byte: for the tests, the fuzzers'
// corpus and the sample.

#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <vector>

namespace TestImages {

using Bytes = std::vector<unsigned char>;

/// One structure. Fields are appended behind the header in the order of the calls.
class Structure {
public:
    Structure(unsigned char type, std::uint16_t handle);

    Structure& Byte(unsigned int value);
    Structure& Word(unsigned int value);
    Structure& Dword(std::uint32_t value);
    Structure& Qword(std::uint64_t value);
    Structure& Raw(const Bytes& bytes);
    Structure& Fill(std::size_t count, unsigned char value = 0);

    /// Appends a string to the string set and its number to the formatted area.
    Structure& Text(const std::string& text);
    /// Appends a string to the string set alone.
    Structure& MoreText(const std::string& text);

    /// Gives the length byte a value other than the true length.
    Structure& ClaimLength(unsigned char length);

    /// The structure with its string set.
    Bytes Finished() const;

private:
    Bytes Formatted;
    Bytes StringSet;
    unsigned char StringCount = 0;
    int ClaimedLength = -1;
};

/// `left` with `right` behind it.
Bytes Join(Bytes left, const Bytes& right);

/// The parts of StructureOf that are wider than a byte.
struct Word {
    unsigned int Value;
};
struct Dword {
    std::uint32_t Value;
};
struct Qword {
    std::uint64_t Value;
};

template <typename Number, std::enable_if_t<std::is_integral_v<Number>, int> = 0>
void Append(Structure& structure, Number byte)
{
    structure.Byte(static_cast<unsigned int>(byte));
}
inline void Append(Structure& structure, Word word)
{
    structure.Word(word.Value);
}
inline void Append(Structure& structure, Dword dword)
{
    structure.Dword(dword.Value);
}
inline void Append(Structure& structure, Qword qword)
{
    structure.Qword(qword.Value);
}
inline void Append(Structure& structure, const Bytes& bytes)
{
    structure.Raw(bytes);
}
/// An empty text takes no string: its number is 0.
inline void Append(Structure& structure, const std::string& text)
{
    if (text.empty())
        structure.Byte(0);
    else
        structure.Text(text);
}

/// A structure from its fields: a plain number is a byte, a text a string reference.
template <typename... Fields>
Structure StructureOf(unsigned char type, std::uint16_t handle, const Fields&... fields)
{
    Structure structure(type, handle);
    (Append(structure, fields), ...);
    return structure;
}

/// A 32-bit entry point of 31 bytes with a right checksum.
Bytes EntryPoint(unsigned char major, unsigned char minor, std::uint16_t tableLength = 0,
                 std::uint32_t tableAddress = 0);

/// A 64-bit entry point of 24 bytes with right checksum.
Bytes EntryPoint64(unsigned char major, unsigned char minor, std::uint32_t tableLength);

/// The structures one behind the other, with the end structure behind them.
Bytes Table(const std::vector<Structure>& structures);

/// `table` with an entry point behind it: what the image constructor takes.
Bytes Image(const Bytes& table, unsigned char major, unsigned char minor);
Bytes Image(const std::vector<Structure>& structures, unsigned char major = 2, unsigned char minor = 7);

/// `table` without an end structure, whose last byte is the last one of the image: the entry point stands
/// ahead of it, inside a structure of a type that is not read.
Bytes ImageWithoutEnd(const Bytes& table, unsigned char major = 2, unsigned char minor = 7);

} // namespace TestImages
