// Prints the size of one memory device of a machine whose table image is in a file: the structure table, with
// a 32-bit entry point behind it.
//
//   memory-device-size samples/two-socket-server.bin

#include <SMBIOSProtocol/SMBIOSProtocolImpl.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>
#include <stdexcept>

namespace {

using Protocol::SMBIOS::SMBIOSProtocolImpl;

// Arrays and devices count from 1, in the order of the table.
const std::string Device = "/SMBIOS/MemoryArray[1]/MemoryDevice[2]";

std::vector<unsigned char> ReadFile(const char* name)
{
    std::ifstream file(name, std::ios::binary);
    if (!file)
        throw std::runtime_error(std::string("Cannot open ") + name);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The value of one leaf; empty where the table does not have it.
std::string TextAt(SMBIOSProtocolImpl& machine, const std::string& path)
{
    std::map<std::string, _XNode> nodes;
    machine.SMBiosSearch(path, nodes);
    return nodes.empty() ? "" : nodes.at(path).Items[0];
}

// The size counts MB, or KB where bit 15 is set. From 32 GB on, it stands in a field of its own, in MB.
std::string SizeInWords(SMBIOSProtocolImpl& machine)
{
    const std::string text = TextAt(machine, Device + "/Size");
    if (text.empty())
        return "There is no such device";
    const unsigned long size = std::stoul(text);
    if (size == 0)
        return "empty";
    if (size == 0xFFFF)
        return "unknown";
    if (size == 0x7FFF)
        return TextAt(machine, Device + "/ExtendedSize") + " MB";
    return std::to_string(size & 0x7FFF) + ((size & 0x8000) != 0 ? " KB" : " MB");
}

} // namespace

int main(int argc, char* argv[])
try {
    if (argc != 2) {
        std::cerr << "Usage: memory-device-size IMAGE\n";
        return 2;
    }
    std::vector<unsigned char> image = ReadFile(argv[1]);
    if (image.size() > std::numeric_limits<unsigned short>::max()) {
        std::cerr << argv[1] << " is too large: an image has at most 65,535 bytes.\n";
        return 1;
    }

    // The image need live only as long as the constructor runs.
    SMBIOSProtocolImpl machine(image.data(), static_cast<unsigned short>(image.size()), "/SMBIOS");
    std::cout << SizeInWords(machine) << '\n';
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
