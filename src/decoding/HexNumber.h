// The form of handles, and of values without a text.

#pragma once

#include <string>

namespace Protocol::SMBIOS {

/// "0x0700": a number in hexadecimal, of so many digits.
inline std::string HexNumber(unsigned long long number, int digits)
{
    std::string text = "0x";
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text += "0123456789ABCDEF"[number >> shift & 0xF];
    return text;
}

} // namespace Protocol::SMBIOS
