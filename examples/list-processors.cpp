// Lists the processors of a machine whose table image is in a file, a line a socket.
//
//   list-processors samples/two-socket-server.bin

#include <SMBIOSProtocol/SMBIOSProtocolImpl.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>
#include <stdexcept>

namespace {

using Protocol::SMBIOS::SMBIOSProtocolImpl;
using Nodes = std::map<std::string, _XNode>;

std::vector<unsigned char> ReadFile(const char* name)
{
    std::ifstream file(name, std::ios::binary);
    if (!file)
        throw std::runtime_error(std::string("Cannot open ") + name);
    return {std::istreambuf_iterator<char>(file), {}};
}

// The text of a leaf, or nothing: a table need not have every field.
std::string Text(const Nodes& nodes, const std::string& path)
{
    const auto node = nodes.find(path);
    return node != nodes.end() && node->second.NodeType == NODE_LEAF ? node->second.Items[0] : "";
}

void PrintProcessor(const Nodes& nodes, const std::string& path)
{
    std::cout << Text(nodes, path + "/SocketDesignation") << ": ";
    if (Text(nodes, path + "/ProcessorPresent") != "True")
        std::cout << "empty\n";
    else
        std::cout << Text(nodes, path + "/ProcessorVersion") << ", " << Text(nodes, path + "/CurrentSpeed")
                  << " MHz\n";
}

} // namespace

int main(int argc, char* argv[])
try {
    if (argc != 2) {
        std::cerr << "Usage: list-processors IMAGE\n";
        return 2;
    }
    std::vector<unsigned char> image = ReadFile(argv[1]);
    if (image.size() > std::numeric_limits<unsigned short>::max()) {
        std::cerr << argv[1] << " is too large: an image has at most 65,535 bytes.\n";
        return 1;
    }
    SMBIOSProtocolImpl machine(image.data(), static_cast<unsigned short>(image.size()), "/SMBIOS");

    const std::string list = "/SMBIOS/ProcessorInfo";
    Nodes nodes;
    machine.SMBiosSearch(list, nodes);
    std::cout << Text(nodes, list + "/TotalNoOfProcessorPresent") << " of "
              << Text(nodes, list + "/TotalNoOfProcessor") << " sockets are populated.\n";

    // The map is sorted by bytes, "[10]" before "[2]". Items has the children in the table's order.
    for (const std::string& path : nodes.at(list).Items) {
        if (nodes.at(path).NodeType == NODE_INNER)
            PrintProcessor(nodes, path);
    }
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
