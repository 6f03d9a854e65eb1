// From the name of an input to its table.

#pragma once

#include <SMBIOSProtocol/TableImage.h>

#include <cstdio>
#include <optional>
#include <string>

namespace SmbiosTree {

using Protocol::SMBIOS::TableImage;

/// The name of a file or folder, "-" for standard input, or nothing: the running machine.
using Input = std::optional<std::string>;

/// How a message names it.
std::string NameOf(const Input& input);

/// Standard input, to be read to its end: as a table or as the list of inputs, once. Throws Failure at the
/// second call.
std::FILE* StandardInput();

/// Reads the table. Throws Failure.
TableImage Read(const Input& input);

/// Saves the table as a dump in a new file. Throws SaveFailure.
void Save(const TableImage& table, const std::string& file);

} // namespace SmbiosTree
