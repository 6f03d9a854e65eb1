// What holds for every node, as far as one look at each of them and a walk over the table tell.

#pragma once

#include "samples/Image.h"
#include "support/Tree.h"

#include <cstddef>

namespace Properties {

/// Looks at each node of an object's tree, and gives how many there are. `table` has its structures; it is
/// empty where they are not known.
std::size_t Look(const SMBIOSProtocolImpl& object, const Images::Bytes& table, bool isNewest);

} // namespace Properties
