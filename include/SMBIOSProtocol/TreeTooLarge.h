/// \file
/// The refusal of a table that would make too large a tree.

#pragma once

#include "SMBIOSProtocol/Export.h"

#include <new>

namespace Protocol::SMBIOS {

/// Thrown by a constructor when a table needs more writes than a tree may take: each node stored and each
/// child listed is one, and so are, with the newest catalogue, each further 254 characters of a long text. No
/// table of a real machine comes near; a table made to exhaust memory does.
class SMBIOSPROTOCOL_API TreeTooLarge : public std::bad_alloc {
public:
    /// The writes that a tree may take.
    static constexpr unsigned int MaxWrites = 1'048'576;

    /// What was wrong with the table.
    const char* what() const noexcept override;
};

} // namespace Protocol::SMBIOS
