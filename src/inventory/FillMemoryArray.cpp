// The memory inventory: each physical memory array (type 16) with the memory devices (type 17) that name its
// handle, and how many of those hold a module.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

namespace Protocol::SMBIOS {

namespace {

constexpr unsigned char PhysicalMemoryArray = 16;

} // namespace

struct SMBIOSProtocolImpl::MemoryDevice {
    const TreeNode* Node;
    bool IsPresent;
};

void SMBIOSProtocolImpl::FillMemoryArray()
{
    const TreeNode* const arrays = FindNode(RootPath + "/Type16");
    if (arrays == nullptr)
        return;
    TreeNode& list = NodeAt(RootPath, "/MemoryArray");
    AddLeaf(list, "TotalNoOfArray", ConvertIntToString(arrays->ChildCount));

    const DevicesByArray devices = GroupDevices();
    const std::vector<MemoryDevice> none;
    const std::vector<SMBiosStructure>& instances = TypeTables.at(PhysicalMemoryArray).Instances;
    std::size_t n = 0;
    for (const TreeNode* source : ResultNodes->Children(*arrays)) {
        const auto members = devices.find(ConvertIntToString(instances[n].Handle));
        TreeNode& array = ListInstance(list, ++n);
        FillInfo(*source, array);
        TreeNode& memberList = AddInner(array, "MemoryDevice");
        FillPresentMemory(array, memberList, members == devices.end() ? none : members->second);
    }
}

// The memory devices by the text of the array handle that they name. A device without a size or an array
// handle belongs to none. One counts as present whatever its size, if only that is not 0.
SMBIOSProtocolImpl::DevicesByArray SMBIOSProtocolImpl::GroupDevices() const
{
    DevicesByArray devices;
    const TreeNode* const all = FindNode(RootPath + "/Type17");
    for (const TreeNode* device : ResultNodes->Children(*all)) {
        const TreeNode* const arrayHandle = FindChild(*device, "MemoryArrayHandle");
        const TreeNode* const size = FindChild(*device, "Size");
        if (arrayHandle != nullptr && size != nullptr)
            devices[arrayHandle->Value].push_back({device, size->Value != "0"});
    }
    return devices;
}

// Fills one array: its devices below `list`, and how many are present.
void SMBIOSProtocolImpl::FillPresentMemory(TreeNode& array, TreeNode& list,
                                           const std::vector<MemoryDevice>& devices)
{
    std::size_t present = 0;
    std::size_t k = 0;
    for (const MemoryDevice& device : devices) {
        TreeNode& copy = ListInstance(list, ++k);
        FillInfo(*device.Node, copy);
        AddWord(copy, "DevicePresent", device.IsPresent ? "True" : "False");
        if (device.IsPresent)
            ++present;
    }
    AddLeaf(array, "TotalNoOfDevicePresent", ConvertIntToString(present));
}

} // namespace Protocol::SMBIOS
