// Writes the images of samples/ into the folder: `make-samples FOLDER`; with --check in front, tells whether
// they stand there. Some are made here, the others of the texts in that folder.

#include "samples/Machines.h"
#include "samples/TableText.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

namespace {

bool Write(const std::string& path, const Images::Bytes& image)
{
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(image.data()), static_cast<std::streamsize>(image.size()));
    file.close();
    if (!file)
        std::cerr << "Cannot write " << path << '\n';
    return static_cast<bool>(file);
}

bool Check(const std::string& path, const Images::Bytes& image)
{
    std::ifstream file(path, std::ios::binary);
    const bool isFresh = Images::Bytes(std::istreambuf_iterator<char>(file), {}) == image;
    if (!isFresh)
        std::cerr << path << " is stale: run scripts/generate\n";
    return isFresh;
}

Images::Bytes OfText(const std::string& path)
{
    std::ifstream file(path);
    return Images::FromText({std::istreambuf_iterator<char>(file), {}});
}

} // namespace

int main(int argc, char** argv)
{
    const bool isCheck = argc == 3 && std::string(argv[1]) == "--check";
    if (argc != 2 && !isCheck) {
        std::cerr << "Usage: make-samples [--check] FOLDER\n";
        return 2;
    }
    const std::string folder = std::string(argv[argc - 1]) + "/";
    const auto handle = isCheck ? Check : Write;
    const std::string workstation = folder + "portable-workstation-3.9";
    const bool areRight[] = {
        handle(folder + "two-socket-server.bin", Images::TwoSocketServer()),
        handle(folder + "desktop-2.4.bin", Images::Desktop()),
        handle(workstation + ".bin", OfText(workstation + ".table")),
    };
    return std::find(std::begin(areRight), std::end(areRight), false) == std::end(areRight) ? 0 : 1;
}
