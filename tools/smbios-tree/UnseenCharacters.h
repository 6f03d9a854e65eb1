// The characters that a reader cannot see, or that hide or reorder others.

#pragma once

namespace SmbiosTree {

/// Whether the character is a control, separates lines, or is what Unicode calls default-ignorable, format,
/// private or unassigned.
bool IsUnseen(char32_t character);

} // namespace SmbiosTree
