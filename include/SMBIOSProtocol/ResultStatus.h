/// \file
/// The failure object: every failure of the library but an exhausted heap reaches the caller as a
/// ResultStatus.

#pragma once

#include "SMBIOSProtocol/Export.h"

#include <exception>
#include <memory>
#include <string>

/// The command during which a failure came about. The library knows none.
enum _XCOMMAND {
    XCOMMAND_NONE = 0, ///< none
};

/// The codes that a ResultStatus carries.
enum ResultCode : unsigned short {
    RESULT_OUT_OF_MEMORY = 1006,       ///< no memory for the firmware's table block
    RESULT_NO_TABLE = 1013,            ///< no table: no firmware block, or no usable entry point in an image
    RESULT_BAD_CHECKSUM = 1024,        ///< the bytes of the entry point do not sum to 0
    RESULT_UNSUPPORTED_VERSION = 1111, ///< the table's version has no catalogue

    RESULT_MAPPING_DENIED = 2001,      ///< the system keeps physical memory from this process
    RESULT_MAPPING_UNAVAILABLE = 2002, ///< the system offers no way to physical memory
    RESULT_MAPPING_FAILED = 2003,      ///< the physical range could not be read

    RESULT_FILE_MISSING = 2101,      ///< there is no such file or folder
    RESULT_FILE_UNREADABLE = 2102,   ///< the file cannot be read, or is neither a file nor a folder
    RESULT_FOLDER_INCOMPLETE = 2103, ///< the folder does not hold the two files of a table
    RESULT_EMPTY = 2104,             ///< there is nothing in the file, or the table has no length
    RESULT_CUT_OFF = 2105,           ///< the dump ends within its entry point or its table
    RESULT_TOO_LARGE = 2107,         ///< the file or its table is larger than what is read
    RESULT_FILE_EXISTS = 2108,       ///< the file to be written is there already
    RESULT_NOT_WRITTEN = 2109,       ///< the file could not be written
};

/// Thrown by value. Copying it never fails.
class SMBIOSPROTOCOL_API ResultStatus : public std::exception {
public:
    /// `code` is a ResultCode, `message` plain sentences for a person; both are kept as they are, as are
    /// `source` and `command`.
    ResultStatus(unsigned short code, std::string message, std::string source, _XCOMMAND command);
    ResultStatus(const ResultStatus&) noexcept;            ///< shares the texts with its source
    ResultStatus& operator=(const ResultStatus&) noexcept; ///< shares the texts with its source
    ~ResultStatus() override;

    unsigned short Code() const noexcept;        ///< a ResultCode
    const std::string& Message() const noexcept; ///< plain sentences: what was wrong and what to do
    const std::string& Source() const noexcept;  ///< empty for a failure of this library
    _XCOMMAND Command() const noexcept;          ///< XCOMMAND_NONE for a failure of this library
    const char* what() const noexcept override;  ///< the message

private:
    struct Details;
    std::shared_ptr<const Details> Shared;
};
