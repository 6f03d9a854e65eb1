// From what the person asks for to the reports and the exit status.

#pragma once

#include "Arguments.h"

namespace SmbiosTree {

/// Does it, and says on standard error what failed. Gives the exit status.
int Run(const Arguments& arguments);

} // namespace SmbiosTree
