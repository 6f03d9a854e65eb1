// What the person asks for.

#pragma once

#include "EntryPoint.h"
#include "Report.h"

#include <optional>
#include <string>
#include <vector>

namespace SmbiosTree {

enum class Output { Indented, Flat, Json, JsonLines, Html, Diff };

struct Arguments {
    std::vector<std::string> Inputs; ///< none: the running machine
    std::string Path;
    std::optional<Version> ReadAs;
    SmbiosTree::Output Output = Output::Indented;
    SmbiosTree::Style Style;
    bool ShowLog = false;
};

/// Reads the arguments. Where they ask for help or the version, or are wrong, says so on the right stream and
/// gives nothing, but the exit status in `status`.
std::optional<Arguments> ParseArguments(std::vector<std::string> line, int& status);

} // namespace SmbiosTree
