// Short ways to ask an object.

#pragma once

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "samples/Image.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

using Protocol::SMBIOS::SMBIOSProtocolImpl;
using SearchResult = std::map<std::string, _XNode>;
using ObjectOwner = std::unique_ptr<SMBIOSProtocolImpl>;

/// Decodes the image. The bytes are gone when this returns: the object may not look back at them.
ObjectOwner Decoded(Images::Bytes image, const std::string& rootPath = "/SMBIOS");

/// All of an object's tree.
SearchResult Everything(SMBIOSProtocolImpl& object, const std::string& path = "/SMBIOS");

bool AreEqual(const SearchResult& left, const SearchResult& right);

/// What is asked of an object's tree, with the answer, so that an answer can be asked again. Paths stand
/// below the root, or begin with "/":
///
///   PATH = TEXT          a leaf; "none" where there is no node
///   PATH = {A, B}        an inner node with these children; of more than eight the first and the last are
///                        named; "and 2 again" where two are listed a second time
///   PATH = 5 bits: A, B  an inner node with a child for each bit, of which these are set
///   PATH: A = 1; B = 2   several of these below one node
///   sums: A 3 12345678   of each child of the root, in their order: how many leaves are below it, and a
///                        sum over all that they say
///   tree                 all leaves, a line each
std::string Answer(SMBIOSProtocolImpl& object, const std::string& root, const std::string& question);
