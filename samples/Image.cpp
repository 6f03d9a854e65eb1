#include "samples/Image.h"

#include <numeric>

namespace Images {

namespace {

constexpr unsigned char EndOfTable = 127;

Bytes LittleEndian(std::uint64_t value, std::size_t width)
{
    Bytes bytes;
    for (std::size_t i = 0; i < width; ++i)
        bytes.push_back(static_cast<unsigned char>(value >> 8 * i));
    return bytes;
}

// Sets the byte at `offset` so that all bytes from `first` on sum to 0.
void SetChecksum(Bytes& bytes, std::size_t first, std::size_t offset)
{
    bytes[offset] = 0;
    const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(first);
    bytes[offset] = static_cast<unsigned char>(0U - std::accumulate(begin, bytes.end(), 0U));
}

} // namespace

Structure::Structure(unsigned char type, std::uint16_t handle)
    : Formatted{type, 0, static_cast<unsigned char>(handle), static_cast<unsigned char>(handle >> 8)}
{
}

Structure& Structure::Number(std::uint64_t value, std::size_t width)
{
    return Raw(LittleEndian(value, width));
}

Structure& Structure::Raw(const Bytes& bytes)
{
    Formatted = Join(std::move(Formatted), bytes);
    return *this;
}

Structure& Structure::FillUpTo(std::size_t offset)
{
    return Fill(offset > Formatted.size() ? offset - Formatted.size() : 0);
}

Structure& Structure::ClaimLength(unsigned char length)
{
    Length = length;
    return *this;
}

Structure& Structure::Text(const std::string& text)
{
    MoreText(text);
    return Byte(StringCount);
}

Structure& Structure::MoreText(const std::string& text)
{
    StringSet.insert(StringSet.end(), text.begin(), text.end());
    StringSet.push_back(0);
    ++StringCount;
    return *this;
}

Bytes Structure::Finished() const
{
    Bytes bytes = Formatted;
    bytes[1] = Length.value_or(static_cast<unsigned char>(Formatted.size()));
    return Join(Join(bytes, StringSet), Bytes(StringSet.empty() ? 2 : 1));
}

Bytes Join(Bytes left, const Bytes& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Bytes EntryPoint(unsigned char major, unsigned char minor, std::size_t tableLength,
                 std::uint32_t tableAddress)
{
    Bytes bytes{'_', 'S', 'M', '_', 0, 31, major, minor, 0, 0, 0, 0, 0, 0, 0, 0, '_', 'D', 'M', 'I', '_', 0};
    bytes = Join(Join(bytes, LittleEndian(tableLength, 2)), LittleEndian(tableAddress, 4));
    bytes.resize(31);
    bytes[0x1E] = static_cast<unsigned char>(major << 4 | minor);
    SetChecksum(bytes, 0x10, 0x15);
    SetChecksum(bytes, 0, 4);
    return bytes;
}

Bytes EntryPoint64(unsigned char major, unsigned char minor, std::size_t tableLength,
                   std::uint64_t tableAddress)
{
    const Bytes start{'_', 'S', 'M', '3', '_', 0, 24, major, minor, 0, 1, 0};
    Bytes bytes = Join(Join(start, LittleEndian(tableLength, 4)), LittleEndian(tableAddress, 8));
    SetChecksum(bytes, 0, 5);
    return bytes;
}

Bytes WithLength(Bytes entryPoint, unsigned char length)
{
    entryPoint.resize(length);
    entryPoint[5] = length;
    SetChecksum(entryPoint, 0, 4);
    return entryPoint;
}

Bytes BlockHeader(unsigned char major, unsigned char minor, std::size_t tableLength)
{
    return Join({0xAA, major, minor, 0xAA}, LittleEndian(tableLength, 4));
}

Bytes Table(const std::vector<Structure>& structures)
{
    Bytes table;
    for (const Structure& structure : structures)
        table = Join(std::move(table), structure.Finished());
    return Join(std::move(table), Structure(EndOfTable, 0xFEFF).Finished());
}

Bytes Image(const Bytes& table, unsigned char major, unsigned char minor)
{
    return Join(table, EntryPoint(major, minor, table.size()));
}

Bytes Image(const std::vector<Structure>& structures, unsigned char major, unsigned char minor)
{
    return Image(Table(structures), major, minor);
}

} // namespace Images
