// The inputs from which the fuzzer starts, and to which the tests hold the properties: the tables of files
// with cases, by way of every route.

#pragma once

#include "samples/Image.h"

#include <string>
#include <vector>

namespace Seeds {

constexpr std::size_t LargestImage = 65'535;

/// The images of a file's cases, as far as an object takes them.
std::vector<Images::Bytes> ImagesOf(const std::string& file);

/// The image as an input for each route, as Properties.h has it.
std::vector<Images::Bytes> InputsOf(const Images::Bytes& image);

} // namespace Seeds
