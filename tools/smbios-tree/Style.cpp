#include "Report.h"

namespace SmbiosTree {

// "Select graphic rendition" of the terminal.
std::string_view Style::Begin(Role role) const
{
    if (!HasColours)
        return {};
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
    return {};
}

std::string_view Style::End() const
{
    return HasColours ? "\x1B[0m" : std::string_view();
}

} // namespace SmbiosTree
