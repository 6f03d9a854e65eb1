// One field's bytes as text.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"

#include <charconv>
#include <cstdint>

namespace Protocol::SMBIOS {

namespace {

constexpr std::size_t DestinationSize = 256;

std::uint64_t LittleEndian(const char* source, unsigned char width)
{
    std::uint64_t value = 0;
    for (unsigned char i = width; i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(source[i]);
    return value;
}

// Eight bytes print as a signed number, fewer as an unsigned one.
char* WriteDecimal(const char* source, char* destination, unsigned char width)
{
    char* const limit = destination + DestinationSize - 1;
    const std::uint64_t value = LittleEndian(source, width);
    if (width == sizeof value)
        return std::to_chars(destination, limit, static_cast<std::int64_t>(value)).ptr;
    return std::to_chars(destination, limit, value).ptr;
}

// Two digits a byte, in the order in which the bytes stand.
char* WriteHex(const char* source, char* destination, unsigned char width)
{
    static constexpr char Digits[] = "0123456789abcdef";
    for (unsigned char i = 0; i < width; ++i) {
        const auto byte = static_cast<unsigned char>(source[i]);
        *destination++ = Digits[byte >> 4];
        *destination++ = Digits[byte & 0xF];
    }
    return destination;
}

} // namespace

// The text goes into `destination`, 256 bytes, with a NUL behind it.
void SMBIOSProtocolImpl::ExtractField(const char* source, char* destination, unsigned char width,
                                      FieldInterpretation interpretation)
{
    char* end = destination;
    switch (interpretation) {
    case FieldInterpretation::Decimal:
        end = WriteDecimal(source, destination, width);
        break;
    case FieldInterpretation::Hex:
        *end++ = '0';
        *end++ = 'X';
        end = WriteHex(source, end, width);
        break;
    case FieldInterpretation::HexBare:
        end = WriteHex(source, destination, width);
        break;
    case FieldInterpretation::String: // a string number, which SMBiosDataTable resolves
        break;
    }
    *end = '\0';
}

// The low 32 bits as a signed number.
std::string SMBIOSProtocolImpl::ConvertIntToString(unsigned long long value)
{
    return std::to_string(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
}

} // namespace Protocol::SMBIOS
