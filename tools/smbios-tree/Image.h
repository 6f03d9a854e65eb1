// From what an input holds to the image that the library decodes.

#pragma once

#include "EntryPoint.h"
#include "Input.h"

#include <optional>

namespace SmbiosTree {

struct Image {
    Bytes Data; ///< the table, with a 32-bit entry point behind it
    SmbiosTree::Version Version;
};

/// Tells the forms apart by content: a dump has an entry point at its very start, a folder has two files, and
/// everything else is an image already. `readAs` takes the place of the table's own version. Throws Failure
/// where a form is cut off, damaged or too large.
Image MakeImage(Contents contents, std::optional<Version> readAs);

} // namespace SmbiosTree
