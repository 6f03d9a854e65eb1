#include "Report.h"

namespace SmbiosTree {

namespace {

// "Select graphic rendition" of the terminal.
constexpr std::string_view Reset = "\x1B[0m";

std::string_view Begin(Role role)
{
    switch (role) {
    case Role::Structure:
        return "\x1B[1m";
    case Role::Field:
        return "\x1B[36m";
    case Role::Removed:
        return "\x1B[31m";
    case Role::Added:
        return "\x1B[32m";
    case Role::Changed:
        return "\x1B[33m";
    }
    return Reset;
}

} // namespace

std::string Style::Paint(Role role, std::string_view text) const
{
    if (!HasColours)
        return std::string(text);
    return std::string(Begin(role)).append(text).append(Reset);
}

} // namespace SmbiosTree
