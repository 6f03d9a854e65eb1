// The parts of the HTML page that are the same for every machine.

#pragma once

#include <string_view>

namespace SmbiosTree::Page {

extern const std::string_view StyleSheet;
extern const std::string_view Script;

} // namespace SmbiosTree::Page
