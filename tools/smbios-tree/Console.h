// What differs between the systems' consoles.

#pragma once

#include <string>
#include <vector>

namespace SmbiosTree::Console {

/// The program's arguments without its own name, as UTF-8 where the system has an encoding for them.
std::vector<std::string> Arguments(int argc, char** argv);

/// Makes the standard streams carry bytes as they are, each report in one piece, and no other file.
void PrepareStreams();

/// Whether standard output is a terminal that shows colours.
bool ShowsColours();

} // namespace SmbiosTree::Console
