/// \file
/// The interface through which a caller asks.

#pragma once

#include "SMBIOSProtocol/Export.h"
#include "SMBIOSProtocol/XNode.h"

#include <map>
#include <string>

namespace Protocol::SMBIOS {

/// Whatever answers with a machine's tree. SMBIOSProtocolImpl is the one there is.
class SMBIOSPROTOCOL_API ISMBIOSProtocol {
public:
    virtual ~ISMBIOSProtocol();

    /// Adds to `results` a copy of the node at `path` and of every node below it, each under its full path;
    /// an entry already there under such a path is overwritten, all others stay. A path without a node adds
    /// nothing.
    virtual void SMBiosSearch(std::string path, std::map<std::string, _XNode>& results) = 0;

protected:
    ISMBIOSProtocol() = default;
    ISMBIOSProtocol(const ISMBIOSProtocol&) = default;            ///< for derived classes
    ISMBIOSProtocol& operator=(const ISMBIOSProtocol&) = default; ///< for derived classes
};

} // namespace Protocol::SMBIOS
