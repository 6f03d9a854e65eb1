// From the name of an input to its bytes.

#pragma once

#include <string>
#include <vector>

namespace SmbiosTree {

using Bytes = std::vector<unsigned char>;

/// What an input holds: a file's bytes, or the two files of a folder.
struct Contents {
    bool IsFolder = false;
    Bytes File;       ///< a file, or standard input
    Bytes EntryPoint; ///< of a folder
    Bytes Table;      ///< of a folder
};

/// Reads the file or folder, or standard input where the name is "-". Throws Failure where that cannot be
/// read, is empty, or is beyond all size.
Contents Read(const std::string& name);

} // namespace SmbiosTree
