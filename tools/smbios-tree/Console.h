// What differs between the systems' consoles.

#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace SmbiosTree::Console {

/// The program's arguments without its own name, as UTF-8 where the system has an encoding for them.
std::vector<std::string> Arguments(int argc, char** argv);

/// Makes the standard streams carry bytes as they are, each report in one piece, and no other file.
void PrepareStreams();

/// Opens a file by its UTF-8 name. Gives null, and errno, where that fails.
std::FILE* OpenToRead(const std::string& name);

/// Whether standard output is a terminal: a person reads it.
bool IsTerminal();

/// Whether standard output is a terminal that shows colours.
bool ShowsColours();

} // namespace SmbiosTree::Console
