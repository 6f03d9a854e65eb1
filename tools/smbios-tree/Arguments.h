// What the person asks for.

#pragma once

#include "Report.h"
#include "Tree.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace SmbiosTree {

enum class Form { Indented, Flat, Value, Json, JsonLines, Html, Diff, Dump };

struct Arguments {
    std::vector<std::string> Inputs;       ///< none: the running machine
    std::optional<std::string> InputsFile; ///< a list of further inputs
    char InputsEnd = '\n';                 ///< what stands behind each name of that list
    SmbiosTree::Choice Choice;
    SmbiosTree::Manner Manner;
    SmbiosTree::Form Form = Form::Indented;
    std::string DumpFile;
    SmbiosTree::Style Style;
    std::optional<std::uint64_t> Limit; ///< of an input's output, in bytes
    bool ShowLog = false;
};

/// Reads the arguments. Where they ask for help or the version, or are wrong, says so on the right stream and
/// gives nothing, but the exit status in `status`.
std::optional<Arguments> ParseArguments(std::vector<std::string> line, int& status);

} // namespace SmbiosTree
