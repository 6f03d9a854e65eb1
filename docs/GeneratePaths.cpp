// Writes docs/paths.md and docs/paths-newest.md into a folder: `generate-paths FOLDER`; with --check in
// front, tells whether they stand there. Every path that a caller can ask for is in them, and every text that
// can stand there, with one catalogue or another.

#include "Paths.h"

#include <fstream>
#include <iostream>
#include <iterator>

namespace {

bool Write(const std::string& path, const std::string& text)
{
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    if (!file)
        std::cerr << "Cannot write " << path << '\n';
    return static_cast<bool>(file);
}

bool Check(const std::string& path, const std::string& text)
{
    std::ifstream file(path, std::ios::binary);
    const bool isFresh = std::string(std::istreambuf_iterator<char>(file), {}) == text;
    if (!isFresh)
        std::cerr << path << " is stale: run scripts/generate\n";
    return isFresh;
}

} // namespace

int main(int argc, char** argv)
try {
    const bool isCheck = argc == 3 && std::string(argv[1]) == "--check";
    if (argc != 2 && !isCheck) {
        std::cerr << "Usage: generate-paths [--check] FOLDER\n";
        return 2;
    }
    const std::string folder = std::string(argv[argc - 1]) + "/";
    const auto handle = isCheck ? Check : Write;
    const bool isFirstRight = handle(folder + "paths.md", PathsByVersion());
    return handle(folder + "paths-newest.md", PathsOfNewest()) && isFirstRight ? 0 : 1;
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
