// The types of structures, as a person calls them.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace SmbiosTree {

/// What the standard calls a type; empty for one that it knows nothing of.
std::string_view TitleOfType(unsigned int type);

/// The type that a person names by its number or its word, such as "memory".
std::optional<unsigned int> TypeOf(const std::string& text);

/// All words, with the number of each.
std::string WordsOfTypes();

/// For completion: the word and the title of each type, or the path of its structures and the title, a line
/// each with a tab between.
std::string LinesOfWords();
std::string LinesOfPaths();

} // namespace SmbiosTree
