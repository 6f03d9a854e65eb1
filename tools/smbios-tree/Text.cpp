#include "Text.h"

#include "UnseenCharacters.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace SmbiosTree {

namespace {

// Bytes that are visible as they are, each for itself.
struct PlainBytes {
    bool Is[256] = {};

    constexpr PlainBytes()
    {
        for (unsigned char byte = ' '; byte <= '~'; ++byte)
            Is[byte] = byte != '\\';
    }
};

constexpr PlainBytes Plain;

// The forms of UTF-8 by their first byte; `Least` is the smallest character that may take the form.
struct Utf8Form {
    unsigned char Mask;
    unsigned char Lead;
    std::size_t Length;
    char32_t Least;
};

constexpr Utf8Form Forms[] = {
    {0x80, 0x00, 1, 0x00},
    {0xE0, 0xC0, 2, 0x80},
    {0xF0, 0xE0, 3, 0x800},
    {0xF8, 0xF0, 4, 0x10000},
};

void AppendHexadecimal(std::string& out, char byte)
{
    static constexpr char Digits[] = "0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    out += Digits[value >> 4];
    out += Digits[value & 0xF];
}

void AppendEscape(std::string& out, char byte)
{
    switch (byte) {
    case '\n':
        out += "\\n";
        return;
    case '\t':
        out += "\\t";
        return;
    case '\r':
        out += "\\r";
        return;
    default:
        out += "\\x";
        AppendHexadecimal(out, byte);
    }
}

} // namespace

Character FirstCharacter(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const auto* const form = std::find_if(std::begin(Forms), std::end(Forms), [&](const Utf8Form& candidate) {
        return (lead & candidate.Mask) == candidate.Lead;
    });
    if (form == std::end(Forms) || text.size() < form->Length)
        return {};
    char32_t code = lead & static_cast<unsigned char>(~form->Mask);
    for (std::size_t i = 1; i < form->Length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80)
            return {};
        code = code << 6 | (byte & 0x3F);
    }
    const bool isSurrogate = 0xD800 <= code && code <= 0xDFFF;
    if (code < form->Least || code > 0x10FFFF || isSurrogate)
        return {};
    return {code, form->Length};
}

bool IsPlain(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char byte) { return Plain.Is[static_cast<unsigned char>(byte)]; });
}

void WriteVisible(Output& out, std::string_view text)
{
    if (IsPlain(text)) // as nearly all are
        out.Append(text);
    else
        out.Append(Visible(text));
}

std::string Visible(std::string_view text)
{
    std::string out;
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        const std::size_t length = std::max<std::size_t>(character.Length, 1);
        if (text.front() == '\\') {
            out += "\\\\";
        } else if (character.Length == 0 || IsUnseen(character.Code)) {
            for (const char byte : text.substr(0, length))
                AppendEscape(out, byte);
        } else {
            out.append(text.substr(0, length));
        }
        text.remove_prefix(length);
    }
    return out;
}

std::string Hexadecimal(std::string_view bytes)
{
    std::string out;
    for (const char byte : bytes)
        AppendHexadecimal(out, byte);
    return out;
}

} // namespace SmbiosTree
