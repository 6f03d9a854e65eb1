// Short ways to ask an object.

#pragma once

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "samples/Image.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
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

/// What a tree is shown beside: the values of structures that are all zeros, by the names of their fields. A
/// value that is one of these is not shown but counted; tests/image/blank.txt shows them all.
using Blanks = std::map<std::string, std::set<std::string>>;

/// Those of the catalogue of 2.7, or of the newest.
const Blanks& BlanksOf(bool isNewest);

/// The subtrees at `paths` for a person, each as "-> PATH: a; b; c", in lines of at most 118 characters;
/// paths stand below the root, which is "all":
///
///   Name: value                         a leaf; a number that stands beside its text follows as "(raw 3)"
///   Name {a; b}                         an inner node
///   Name: 3 bits: One, Other            an inner node whose children are all "Supported" or not: those that
///   are +7                                  as many more are blank 2 again children that are listed a second
///   time 2 listed                            children that a leaf lists Name, without a node a child that
///   the search does not give
///
/// A type without structures is not shown, but where no type has any.
std::string TreeText(SMBIOSProtocolImpl& object, const std::string& root,
                     const std::vector<std::string>& paths, const Blanks& blanks);

/// The paths that a case's text shows; where it shows none, `usual`.
std::vector<std::string> ShownIn(const std::string& text, const std::string& usual);

/// Lines that are parted at ";" or ",". What has an index, and '\n' behind it, begins one where it does not
/// fit.
std::string Wrapped(const std::string& text);

/// The tree of what `make` gives at `paths`, or how it is refused.
std::string Outcome(const std::function<ObjectOwner()>& make, const std::vector<std::string>& paths,
                    const Blanks& blanks, const std::string& root = "/SMBIOS");
