// The inputs from which the fuzzer starts, and to which the tests hold the properties: the tables of files
// with cases, by way of every route.

#pragma once

#include "samples/Image.h"

#include <string>
#include <vector>

namespace Seeds {

/// The images of a file's cases, as far as their trees are small enough for a fuzzer.
std::vector<Images::Bytes> ImagesOf(const std::string& file);

/// The image as an input for each route, as Properties.h has it, with the control bits `test`.
std::vector<Images::Bytes> InputsOf(const Images::Bytes& image, unsigned int test);

} // namespace Seeds
