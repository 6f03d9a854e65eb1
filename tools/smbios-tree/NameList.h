// A list of names in a file or on standard input.

#pragma once

#include <cstdio>
#include <string>

namespace SmbiosTree {

/// Reads a list name by name, so that its length does not matter.
class NameList {
public:
    /// Reads the file, or standard input where its name is "-". `end` stands behind each name. Throws Failure
    /// where the file cannot be opened.
    NameList(const std::string& file, char end);
    ~NameList();
    NameList(const NameList&) = delete;
    NameList& operator=(const NameList&) = delete;

    /// The next name, which is not empty. Gives false at the end of the list. Throws Failure where it cannot
    /// be read.
    bool Next(std::string& name);

private:
    std::FILE* Stream;
    char End;
};

} // namespace SmbiosTree
