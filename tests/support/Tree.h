// Short ways to ask an object.

#pragma once

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "samples/Image.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

using Protocol::SMBIOS::SMBIOSProtocolImpl;
using SearchResult = std::map<std::string, _XNode>;
using ObjectOwner = std::unique_ptr<SMBIOSProtocolImpl>;

/// Decodes the image. The bytes are gone when this returns: the object may not look back at them.
ObjectOwner Decoded(Images::Bytes image, const std::string& rootPath = "/SMBIOS");

/// All of an object's tree.
SearchResult Everything(SMBIOSProtocolImpl& object, const std::string& path = "/SMBIOS");

bool AreEqual(const SearchResult& left, const SearchResult& right);

/// The subtree at `path` for a person, two blanks deeper with each level:
///
///   Name                                an inner node
///   Name: value                         a leaf; a number that stands beside its text follows as "(raw 3)"
///   Name: 3 bits: One, Other            an inner node whose children are all "Supported" or not: those that
///   are Name, again                         a child that is listed a second time Name, listed a child that a
///   leaf lists Name, without a node                a child that the search does not give
///
/// A type without structures has no line, but where no type has any.
std::string TreeText(SMBIOSProtocolImpl& object, const std::string& path);

/// The tree of what `make` gives below `paths`, or how it is refused.
std::string Outcome(const std::function<ObjectOwner()>& make, const std::vector<std::string>& paths);
