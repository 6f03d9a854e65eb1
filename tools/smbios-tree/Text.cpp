#include "Text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace SmbiosTree {

namespace {

struct Range {
    char32_t First;
    char32_t Last;
};

// Controls of the terminal, and characters that hide or reorder others.
constexpr Range Unseen[] = {
    {0x00, 0x1F},     {0x7F, 0x9F},     {0xAD, 0xAD},     {0x61C, 0x61C},   {0x200B, 0x200F},
    {0x2028, 0x202E}, {0x2060, 0x206F}, {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFB}, {0xE0000, 0xE0FFF},
};

bool IsUnseen(char32_t character)
{
    return std::any_of(std::begin(Unseen), std::end(Unseen), [&](const Range& range) {
        return range.First <= character && character <= range.Last;
    });
}

bool IsPlain(char byte)
{
    return ' ' <= byte && byte <= '~' && byte != '\\';
}

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

struct Character {
    char32_t Code = 0;
    std::size_t Length = 0; ///< 0: no character
};

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

std::size_t CharacterLength(std::string_view text)
{
    return FirstCharacter(text).Length;
}

std::string Visible(std::string_view text)
{
    if (std::all_of(text.begin(), text.end(), IsPlain)) // as nearly all are
        return std::string(text);
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
