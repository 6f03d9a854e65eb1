// The memory inventory: each physical memory array (type 16) with the memory devices (type 17) that name its
// handle, and how many of those hold a module.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

namespace Protocol::SMBIOS {

namespace {

constexpr unsigned char PhysicalMemoryArray = 16;

std::string Indexed(std::string_view path, std::size_t index)
{
    return std::string(path).append("[" + std::to_string(index) + "]");
}

} // namespace

void SMBIOSProtocolImpl::FillMemoryArray()
{
    const TreeNode* const arrays = FindNode(RootPath + "/Type16");
    if (arrays == nullptr)
        return;
    const std::string listPath = RootPath + "/MemoryArray";
    TreeNode& list = NodeAt(listPath);
    AddNode(listPath, "/TotalNoOfArray", ConvertIntToString(arrays->Children.size()), NODE_LEAF);

    const DevicesByArray devices = GroupDevices();
    const std::vector<SMBiosStructure>& instances = TypeTables.at(PhysicalMemoryArray).Instances;
    for (std::size_t n = 1; n <= arrays->Children.size(); ++n) {
        const std::string arrayPath = Indexed(listPath, n);
        ListInstance(list, n);
        FillInfo(listPath, Indexed(RootPath + "/Type16", n), '6');
        AddNode(arrayPath, "/MemoryDevice", "", NODE_INNER);
        FillPresentMemory(arrayPath + "/MemoryDevice", arrayPath, instances[n - 1].Handle, devices);
    }
}

// The indexes of the memory devices by the text of the array handle that they name. A device without a size
// or an array handle belongs to none.
SMBIOSProtocolImpl::DevicesByArray SMBIOSProtocolImpl::GroupDevices() const
{
    DevicesByArray devices;
    const TreeNode* const all = FindNode(RootPath + "/Type17");
    for (std::size_t i = 1; i <= all->Children.size(); ++i) {
        const std::string path = Indexed(RootPath + "/Type17", i);
        const TreeNode* const arrayHandle = FindNode(path + "/MemoryArrayHandle");
        if (arrayHandle != nullptr && FindNode(path + "/Size") != nullptr)
            devices[arrayHandle->Value].push_back(i);
    }
    return devices;
}

// Fills one array. A device counts as present whatever its size, if only that is not 0.
void SMBIOSProtocolImpl::FillPresentMemory(std::string_view devicePath, std::string_view arrayPath,
                                           unsigned short arrayHandle, const DevicesByArray& devices)
{
    std::size_t present = 0;
    std::size_t k = 1;
    TreeNode& list = NodeAt(devicePath);
    const auto members = devices.find(ConvertIntToString(arrayHandle));
    if (members != devices.end()) {
        list.Children.reserve(members->second.size());
        for (const std::size_t i : members->second) {
            const std::string source = Indexed(RootPath + "/Type17", i);
            const std::string newPath = Indexed(devicePath, k);
            const bool isPresent = FindNode(source + "/Size")->Value != "0";
            if (isPresent)
                ++present;
            ListInstance(list, k);
            FillInfo(newPath, source, ']');
            AddNode(newPath, "/DevicePresent", isPresent ? "True" : "False", NODE_LEAF);
            ++k;
        }
    }
    AddNode(arrayPath, "/TotalNoOfDevicePresent", ConvertIntToString(present), NODE_LEAF);
}

} // namespace Protocol::SMBIOS
