// One field's bytes as text.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "catalogue/Definition.h"
#include "structures/LittleEndian.h"

#include <charconv>
#include <cstdint>

namespace Protocol::SMBIOS {

namespace {

constexpr std::size_t LongestNumber = 20;

template <typename Number>
char* WriteNumber(Number value, char* destination)
{
    return std::to_chars(destination, destination + LongestNumber, value).ptr;
}

// Eight bytes print as a signed number, fewer as an unsigned one.
char* WriteDecimal(std::uint64_t value, char* destination, unsigned char width)
{
    if (width == sizeof value)
        return WriteNumber(static_cast<std::int64_t>(value), destination);
    return WriteNumber(value, destination);
}

char* WriteSigned(std::uint64_t value, char* destination, unsigned char width)
{
    const std::uint64_t sign = std::uint64_t{1} << (8 * width - 1);
    return WriteNumber(static_cast<std::int64_t>((value ^ sign) - sign), destination);
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

// The text goes into `destination`, with a NUL behind it: of a number at most 20 characters, of bytes two
// each and the prefix.
void SMBIOSProtocolImpl::ExtractField(const char* source, char* destination, unsigned char width,
                                      FieldInterpretation interpretation)
{
    char* end = destination;
    switch (interpretation) {
    case FieldInterpretation::Decimal:
        end = WriteDecimal(LittleEndian(source, width), destination, width);
        break;
    case FieldInterpretation::Signed:
        end = WriteSigned(LittleEndian(source, width), destination, width);
        break;
    case FieldInterpretation::Unsigned:
        end = WriteNumber(LittleEndian(source, width), destination);
        break;
    case FieldInterpretation::Hex:
        *end++ = '0';
        *end++ = 'X';
        end = WriteHex(source, end, width);
        break;
    case FieldInterpretation::HexBare:
        end = WriteHex(source, destination, width);
        break;
    case FieldInterpretation::String: // a string number, which StructureDecoder resolves
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
