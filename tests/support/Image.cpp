#include "support/Image.h"

#include <numeric>

namespace TestImages {

namespace {

constexpr unsigned char EndOfTable = 127;
constexpr unsigned char UnreadType = 200;

void Append(Bytes& target, const Bytes& bytes)
{
    target.insert(target.end(), bytes.begin(), bytes.end());
}

void AppendLittleEndian(Bytes& target, std::uint64_t value, std::size_t width)
{
    for (std::size_t i = 0; i < width; ++i)
        target.push_back(static_cast<unsigned char>(value >> 8 * i));
}

// Sets the byte at `offset` so that all bytes from `first` on sum to 0.
void SetChecksum(Bytes& bytes, std::size_t first, std::size_t offset)
{
    const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(first);
    const unsigned int sum = std::accumulate(begin, bytes.end(), 0U);
    bytes[offset] = static_cast<unsigned char>(0U - sum);
}

} // namespace

Structure::Structure(unsigned char type, std::uint16_t handle)
    : Formatted{type, 0, static_cast<unsigned char>(handle), static_cast<unsigned char>(handle >> 8)}
{
}

Structure& Structure::Byte(unsigned int value)
{
    AppendLittleEndian(Formatted, value, 1);
    return *this;
}

Structure& Structure::Word(unsigned int value)
{
    AppendLittleEndian(Formatted, value, 2);
    return *this;
}

Structure& Structure::Dword(std::uint32_t value)
{
    AppendLittleEndian(Formatted, value, 4);
    return *this;
}

Structure& Structure::Qword(std::uint64_t value)
{
    AppendLittleEndian(Formatted, value, 8);
    return *this;
}

Structure& Structure::Raw(const Bytes& bytes)
{
    Append(Formatted, bytes);
    return *this;
}

Structure& Structure::Fill(std::size_t count, unsigned char value)
{
    Formatted.insert(Formatted.end(), count, value);
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

Structure& Structure::ClaimLength(unsigned char length)
{
    ClaimedLength = length;
    return *this;
}

Bytes Structure::Finished() const
{
    Bytes bytes = Formatted;
    bytes[1] =
        static_cast<unsigned char>(ClaimedLength >= 0 ? ClaimedLength : static_cast<int>(Formatted.size()));
    Append(bytes, StringSet);
    bytes.insert(bytes.end(), StringSet.empty() ? 2 : 1, 0);
    return bytes;
}

Bytes EntryPoint(unsigned char major, unsigned char minor, std::uint16_t tableLength,
                 std::uint32_t tableAddress)
{
    Bytes bytes{'_', 'S', 'M', '_', 0, 31, major, minor, 0, 0, 0, 0, 0, 0, 0, 0, '_', 'D', 'M', 'I', '_', 0};
    AppendLittleEndian(bytes, tableLength, 2);
    AppendLittleEndian(bytes, tableAddress, 4);
    bytes.resize(31);
    bytes[0x1E] = static_cast<unsigned char>(major << 4 | minor);
    SetChecksum(bytes, 0x10, 0x15);
    SetChecksum(bytes, 0, 4);
    return bytes;
}

Bytes EntryPoint64(unsigned char major, unsigned char minor, std::uint32_t tableLength)
{
    Bytes bytes{'_', 'S', 'M', '3', '_', 0, 24, major, minor, 0, 1, 0};
    AppendLittleEndian(bytes, tableLength, 4);
    AppendLittleEndian(bytes, 0, 8);
    SetChecksum(bytes, 0, 5);
    return bytes;
}

Bytes Table(const std::vector<Structure>& structures)
{
    Bytes table;
    for (const Structure& structure : structures)
        Append(table, structure.Finished());
    Append(table, Structure(EndOfTable, 0xFEFF).Finished());
    return table;
}

Bytes Image(const Bytes& table, unsigned char major, unsigned char minor)
{
    Bytes image = table;
    Append(image, EntryPoint(major, minor, static_cast<std::uint16_t>(table.size())));
    return image;
}

Bytes Image(const std::vector<Structure>& structures, unsigned char major, unsigned char minor)
{
    return Image(Table(structures), major, minor);
}

Bytes ImageWithoutEnd(const Bytes& table, unsigned char major, unsigned char minor)
{
    return Join(Structure(UnreadType, 0xFEFE).Raw(EntryPoint(major, minor)).Finished(), table);
}

Bytes Join(Bytes left, const Bytes& right)
{
    Append(left, right);
    return left;
}

} // namespace TestImages
