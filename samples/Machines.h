// Two invented machines for samples/: makers, products and serial numbers belong to nobody.

#pragma once

#include "samples/Image.h"

namespace Images {

/// A rack server of revision 2.7 with every structure type that is read: one of two sockets filled, its
/// caches linked, two memory arrays, slots, ports, boards, and the platform's own types 132 and 133.
Bytes TwoSocketServer();

/// A tower of revision 2.4, of which the later fields and texts are absent.
Bytes Desktop();

} // namespace Images
