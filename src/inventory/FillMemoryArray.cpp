// The memory inventory: each physical memory array (type 16) with the memory devices (type 17) that name its
// handle, and how many of those hold a module.

#include "SMBIOSProtocol/SMBIOSProtocolImpl.h"
#include "tree/NodeStore.h"

namespace Protocol::SMBIOS {

namespace {

constexpr unsigned char PhysicalMemoryArray = 16;

using DevicesByArray = std::unordered_map<std::string_view, std::vector<const TreeNode*>>;

// The memory devices by the text of the array handle that they name. A device without a size or an array
// handle belongs to none.
DevicesByArray GroupDevices(const NodeStore& nodes, const TreeNode& all)
{
    DevicesByArray devices;
    for (const TreeNode* device : nodes.Children(all)) {
        const TreeNode* const arrayHandle = nodes.FindChild(*device, "MemoryArrayHandle");
        if (arrayHandle != nullptr && nodes.FindChild(*device, "Size") != nullptr)
            devices[arrayHandle->Value].push_back(device);
    }
    return devices;
}

} // namespace

void SMBIOSProtocolImpl::FillMemoryArray()
{
    const TreeNode* const arrays = ResultNodes->Find(RootPath + "/Type16");
    if (arrays == nullptr)
        return;
    TreeNode& list = ResultNodes->At(RootPath + "/MemoryArray");
    AddNode(list, "TotalNoOfArray", NODE_LEAF, ResultNodes->Keep(ConvertIntToString(arrays->ChildCount)));

    const DevicesByArray devices = GroupDevices(*ResultNodes, *ResultNodes->Find(RootPath + "/Type17"));
    const std::vector<const TreeNode*> none;
    const std::vector<SMBiosStructure>& instances = TypeTables.at(PhysicalMemoryArray).Instances;
    std::size_t n = 0;
    for (const TreeNode* source : ResultNodes->Children(*arrays)) {
        const auto members = devices.find(ConvertIntToString(instances[n].Handle));
        TreeNode& array = ResultNodes->ListInstance(list, ++n);
        FillInfo(*source, array);
        TreeNode& memberList = AddNode(array, "MemoryDevice", NODE_INNER);
        FillPresentMemory(array, memberList, members == devices.end() ? none : members->second);
    }
}

// Fills one array: its devices below `list`, and how many are present. A device is present if its size is
// not 0; FFFFh counts as present.
void SMBIOSProtocolImpl::FillPresentMemory(TreeNode& array, TreeNode& list,
                                           const std::vector<const TreeNode*>& devices)
{
    std::size_t present = 0;
    std::size_t k = 0;
    for (const TreeNode* device : devices) {
        const bool isPresent = ResultNodes->FindChild(*device, "Size")->Value != "0";
        TreeNode& copy = ResultNodes->ListInstance(list, ++k);
        FillInfo(*device, copy);
        AddNode(copy, "DevicePresent", NODE_LEAF, isPresent ? "True" : "False");
        if (isPresent)
            ++present;
    }
    AddNode(array, "TotalNoOfDevicePresent", NODE_LEAF, ResultNodes->Keep(ConvertIntToString(present)));
}

} // namespace Protocol::SMBIOS
