// Images made to do harm by the means that the format itself offers. They are the corpus of the bounds tests,
// and the small ones seed the fuzzers.

#pragma once

#include "support/Image.h"

#include <string>
#include <vector>

namespace HostileImages {

using TestImages::Bytes;

struct HostileImage {
    std::string Name;
    Bytes Image;
    bool IsRefused; ///< the tree would be too large
};

/// One image for each way of doing harm.
std::vector<HostileImage> All();

/// Images that grow evenly with a count.
struct Family {
    const char* Name;
    Bytes (*Build)(unsigned int count);
    unsigned int Largest; ///< count whose tree is not too large yet
};

/// Those that take the most memory a write, each in its way.
extern const std::vector<Family> Families;

/// A table for the live routes in which `count` memory descriptions ask for a block of physical memory each,
/// and `copies` memory arrays take all devices.
Bytes FloodOfBlocks(unsigned int count, unsigned int copies);

} // namespace HostileImages
