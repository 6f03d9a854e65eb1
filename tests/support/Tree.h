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

/// What a person asks of an object's tree, with the answer, so that an answer is a question too:
///
///   PATH = TEXT             a leaf; "none" where there is no node. Paths stand below the root, or begin with
///   "/" PATH = {A, B, C}        an inner node has these children; of more than eight the first and the last
///   are named,
///                           and those that are listed again are counted
///   PATH = 5 bits: A, B     an inner node with a child for each bit: these are set
///   PATH: A = TEXT; B = ... several of these below one node
///   sums: A 3 12345678; ... of each child of the root how many leaves are below it, and a sum over the paths
///   and
///                           texts of all of them, in their order
///   tree                    all leaves, a line each
std::string Answer(SMBIOSProtocolImpl& object, const std::string& root, const std::string& question);
