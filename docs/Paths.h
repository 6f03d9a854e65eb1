// The two documents that are generated.

#pragma once

#include <string>

std::string PathsByVersion(); ///< docs/paths.md
std::string PathsOfNewest();  ///< docs/paths-newest.md
