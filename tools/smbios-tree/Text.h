// Firmware text on its way to a reader: any byte can be in it.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace SmbiosTree {

/// The length in bytes of the UTF-8 character at the start of `text`, which is not empty; 0 where there is
/// none.
std::size_t CharacterLength(std::string_view text);

/// `text` on one line, with nothing in it that a reader cannot see: a backslash as "\\", line feed, tab and
/// carriage return as "\n", "\t" and "\r", and every other byte of a control character, of an invisible one
/// or of no character at all as "\xNN".
std::string Visible(std::string_view text);

/// Two capital digits for each byte.
std::string Hexadecimal(std::string_view bytes);

} // namespace SmbiosTree
