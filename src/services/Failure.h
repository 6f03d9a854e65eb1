// Raising a failure: every ResultStatus of the library comes from here.

#pragma once

#include <string>

namespace Protocol::SMBIOS {

/// Throws the ResultStatus of `code`, with the text that the error manager has for it.
[[noreturn]] void RaiseFailure(unsigned short code);

/// The same with a text of its own, where `code` alone does not say what was wrong and what to do.
[[noreturn]] void RaiseFailure(unsigned short code, const std::string& text);

} // namespace Protocol::SMBIOS
