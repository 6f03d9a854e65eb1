// Writes the images of samples/ into a folder.

#include "support/SampleServer.h"

#include <fstream>
#include <iostream>
#include <string>

namespace {

bool Write(const std::string& path, const TestImages::Bytes& image)
{
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(image.data()), static_cast<std::streamsize>(image.size()));
    file.close();
    if (!file)
        std::cerr << "Cannot write " << path << '\n';
    return static_cast<bool>(file);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "Usage: make-samples FOLDER\n";
        return 2;
    }
    const std::string folder = std::string(argv[1]) + "/";
    const bool isWritten = Write(folder + "two-socket-server.bin", TestImages::TwoSocketServer()) &&
                           Write(folder + "desktop-2.4.bin", TestImages::Desktop());
    return isWritten ? 0 : 1;
}
