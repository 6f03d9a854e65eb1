// What a person wants to know of a machine first.

#pragma once

#include "Tree.h"

#include <string>
#include <vector>

namespace SmbiosTree {

struct Fact {
    std::string Label;
    std::string Text;
};

/// A processor's socket or a memory module's, filled or not.
struct Slot {
    bool IsFilled = false;
    std::string Headline;
    std::vector<std::string> Lines;
};

struct SlotGroup {
    std::string Title; ///< "32 GB, 4 of 8 slots filled"
    std::vector<Slot> Slots;
};

struct Summary {
    std::string Title;
    std::string Subtitle; ///< may be empty
    std::vector<Fact> Facts;
    SlotGroup Processors;
    SlotGroup Memory;                    ///< all of it
    std::vector<SlotGroup> MemoryArrays; ///< the same slots by array
};

/// Takes the summary from the tree.
Summary Summarise(const Tree& tree);

} // namespace SmbiosTree
