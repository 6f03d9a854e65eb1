// What goes wrong with an input, as the person at the terminal and the batch behind it read it.

#pragma once

#include <SMBIOSProtocol/ResultStatus.h>

#include <stdexcept>
#include <string>

namespace SmbiosTree {

/// The kinds of failure, by the words under which machine-readable output has them.
namespace Kind {
constexpr const char* Unreadable = "unreadable";
constexpr const char* Empty = "empty";
constexpr const char* TooLarge = "too-large";
constexpr const char* Truncated = "truncated";
constexpr const char* Damaged = "damaged";
constexpr const char* NoEntryPoint = "no-entry-point";
constexpr const char* UnsupportedVersion = "unsupported-version";
constexpr const char* UnknownPath = "unknown-path";
constexpr const char* TreeTooLarge = "tree-too-large";
constexpr const char* MachineUnreadable = "machine-unreadable";
constexpr const char* NotAValue = "not-a-value";
constexpr const char* OutOfMemory = "out-of-memory";
} // namespace Kind

/// One input failed. what() says what was wrong and what to do, in one line without the input's name.
class Failure : public std::runtime_error {
public:
    Failure(const char* code, const std::string& message) : std::runtime_error(message), Code(code) {}

    const char* Code; ///< one of Kind
};

/// What the library says of a table from elsewhere.
Failure InputFailure(const ResultStatus& status);

/// What the library says of the running machine.
Failure MachineFailure(const ResultStatus& status);

Failure OutOfMemory();

/// A file could not be saved.
class SaveFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The output could not be written: a full disk, a closed pipe.
class OutputFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace SmbiosTree
