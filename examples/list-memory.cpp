// Lists the memory devices of a machine whose table is in a file of any form, or in a folder like
// /sys/firmware/dmi/tables.
//
//   list-memory samples/two-socket-server.bin

#include <SMBIOSProtocol/SMBIOSProtocolImpl.h>

#include <iostream>

namespace {

using Protocol::SMBIOS::NodeView;
using Protocol::SMBIOS::Reading;
using Protocol::SMBIOS::SMBIOSProtocolImpl;
using Protocol::SMBIOS::TableImage;

// The value of a device's field; empty where its structure is too old to have it.
std::string Field(const SMBIOSProtocolImpl& machine, NodeView device, const char* name)
{
    const NodeView field = machine.Find(std::string(device.Path()) + "/" + name);
    return field ? std::string(field.Value()) : "";
}

// The size counts MB, or KB where bit 15 is set. From 32 GB on, it stands in a field of its own, in MB.
std::string SizeInWords(const SMBIOSProtocolImpl& machine, NodeView device)
{
    const std::string text = Field(machine, device, "Size");
    const unsigned long size = text.empty() ? 0 : std::stoul(text);
    if (size == 0)
        return "empty";
    if (size == 0xFFFF)
        return "unknown";
    if (size == 0x7FFF)
        return Field(machine, device, "ExtendedSize") + " MB";
    return std::to_string(size & 0x7FFF) + ((size & 0x8000) != 0 ? " KB" : " MB");
}

// The node of the devices lists each of them, and may list fields of its own.
void PrintDevices(const SMBIOSProtocolImpl& machine, NodeView devices)
{
    for (const NodeView device : devices.Children()) {
        if (!device.IsLeaf())
            std::cout << Field(machine, device, "DeviceLocator") << ": " << SizeInWords(machine, device)
                      << '\n';
    }
}

} // namespace

int main(int argc, char* argv[])
try {
    if (argc != 2) {
        std::cerr << "Usage: list-memory FILE\n";
        return 2;
    }
    // The file's bytes need live only as long as the constructor runs.
    const SMBIOSProtocolImpl machine(TableImage::FromFile(argv[1]), Reading::Newest);
    for (const NodeView array : machine.Find("/SMBIOS/MemoryArray").Children()) {
        if (const NodeView devices = machine.Find(std::string(array.Path()) + "/MemoryDevice"))
            PrintDevices(machine, devices);
    }
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
