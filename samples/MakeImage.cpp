// Makes an image, a dump or any other bytes of a table that a person wrote: `make-image [FILE] >IMAGE`. The
// file, or standard input, holds what samples/TableText.h describes; an entry point of its own makes the
// form.

#include "samples/TableText.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

int main(int argc, char** argv)
{
    std::ifstream file;
    if (argc == 2)
        file.open(argv[1]);
    std::istream& input = argc == 2 ? file : std::cin;
    const std::string text{std::istreambuf_iterator<char>(input), std::istreambuf_iterator<char>()};
    try {
        const Images::Bytes image = Images::ImageFromText(text);
        std::cout.write(reinterpret_cast<const char*>(image.data()),
                        static_cast<std::streamsize>(image.size()));
        return input.bad() || (argc == 2 && !file.is_open()) ? 1 : 0;
    } catch (const std::invalid_argument& error) {
        std::cerr << "make-image: " << error.what() << '\n';
        return 1;
    }
}
