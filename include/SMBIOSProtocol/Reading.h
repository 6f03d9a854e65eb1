/// \file
/// How a table is read.

#pragma once

namespace Protocol::SMBIOS {

/// The catalogue that a table is read with.
enum class Reading {
    ByVersion, ///< one of the five catalogues, by the table's version; any other version is refused with 1111
    Newest,    ///< all of the newest standard, whatever the version
};

} // namespace Protocol::SMBIOS
