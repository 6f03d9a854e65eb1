#include <SMBIOSProtocol/SMBIOSProtocolImpl.h>

#include <iostream>

using namespace Protocol::SMBIOS;

int main(int argc, char* argv[])
try {
    const TableImage table = argc > 1 ? TableImage::FromFile(argv[1]) : TableImage::OfThisMachine();
    const SMBIOSProtocolImpl machine(table, Reading::Newest);
    if (const NodeView size = machine.Find("/SMBIOS/MemoryArray[1]/MemoryDevice[2]/Size"))
        std::cout << size.Path() << " = " << size.Value() << '\n';
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
