// Raising a failure: every ResultStatus of the library comes from here.

#pragma once

namespace Protocol::SMBIOS {

/// Throws the ResultStatus of `code`, with the text that the error manager has for it.
[[noreturn]] void RaiseFailure(unsigned short code);

} // namespace Protocol::SMBIOS
