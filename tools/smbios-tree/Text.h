// Firmware text on its way to a reader: any byte can be in it.

#pragma once

#include "Output.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace SmbiosTree {

struct Character {
    char32_t Code = 0;
    std::size_t Length = 0; ///< in bytes; 0: no character
};

/// The UTF-8 character at the start of `text`, which is not empty.
Character FirstCharacter(std::string_view text);

/// `text` on one line, with nothing in it that a reader cannot see: a backslash as "\\", line feed, tab and
/// carriage return as "\n", "\t" and "\r", and every other byte of a control character, of an invisible one
/// or of no character at all as "\xNN".
std::string Visible(std::string_view text);

/// Writes the same.
void WriteVisible(Output& out, std::string_view text);

/// Whether `text` is visible as it is, of ASCII alone and without a backslash.
bool IsPlain(std::string_view text);

/// Two capital digits for each byte.
std::string Hexadecimal(std::string_view bytes);

} // namespace SmbiosTree
